#include "session/session.h"

#include <cmath>

#include "logfile/number_text.h"
#include "session/clock.h"

namespace tessarin {
namespace {

constexpr double kProgressInterval = 0.1;  // seconds between caption updates
constexpr double kSecondsPerDay = 86400;

double RoundTo2Decimals(double value) {
    return std::round(value * 100.0) / 100.0;
}

}  // namespace

Session::Session(Host& host, std::filesystem::path program_folder)
    : host_(host), program_folder_(std::move(program_folder)), clock_(SecondsSinceMidnight) {
    // "/opt/tool/" and "/opt/tool" name one folder; keep the form without the separator.
    if (!program_folder_.has_filename() && program_folder_.has_relative_path()) {
        program_folder_ = program_folder_.parent_path();
    }
}

bool Session::Busy(const std::string& text, float fraction) {
    if (fraction >= 1) {
        host_.EndProgress();
        return Aborted();
    }
    if (fraction == 0) {
        host_.BeginProgress();
        last_progress_update_ = -1;
    }
    const double now = Now();
    if (std::fabs(now - last_progress_update_) >= kProgressInterval) {
        last_progress_update_ = now;
        host_.ShowProgress(text + ": done" + DoubleText(RoundTo2Decimals(fraction * 100.0)) + "%");
    }
    if (Aborted()) {
        host_.EndProgress();
        return true;
    }
    return false;
}

ProgressFn Session::Progress() {
    return [this](const std::string& text, float fraction) { return Busy(text, fraction); };
}

void Session::FinalNote(double start_time) {
    if (Aborted()) {
        host_.PrintMainLine("User Abort");
        ClearAbort();
        return;
    }
    double elapsed = Now() - start_time;
    while (elapsed < 0)
        elapsed += kSecondsPerDay;  // a run across midnight
    host_.PrintMainLine("Time needed =" + DoubleText(RoundTo2Decimals(elapsed)) + " sec");
}

}  // namespace tessarin
