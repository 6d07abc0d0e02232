#include "subwords/progress_meter.h"

#include <algorithm>
#include <utility>

namespace tessarin {

ProgressMeter::ProgressMeter(const ProgressFn& progress, std::string text, double total_units)
    : progress_(progress), text_(std::move(text)), total_units_(total_units) {}

bool ProgressMeter::Report() {
    reported_ = done_;
    // A fraction of 1 ends the progress display, so an estimate of the total that falls short
    // stops just below it.
    const double fraction =
        total_units_ > 0 ? std::min(kMostBeforeDone, static_cast<double>(done_) / total_units_) : 0.0;
    return progress_(text_, static_cast<float>(fraction));
}

}  // namespace tessarin
