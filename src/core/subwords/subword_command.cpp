#include "subwords/subword_command.h"

#include <charconv>
#include <cmath>

#include "logfile/log_file.h"
#include "subwords/find_words.h"

namespace tessarin {
namespace {

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace

Outcome RunTimedAnalysis(Session& session, const std::function<bool()>& analysis) {
    const double start_time = session.Now();
    const bool reported = analysis();
    if (reported) ShowLogFile(session);
    const bool cancelled = session.Aborted();
    session.FinalNote(start_time);
    if (cancelled) return Outcome::kCancelled;
    return reported ? Outcome::kCompleted : Outcome::kRefused;
}

std::optional<int> AskMaximumWordLength(Session& session, const std::string& title) {
    const std::string proposal = std::to_string(session.sequence().text.size());
    const auto answer = session.host().AskInput("Specify Maximum Word Length", title, proposal);
    if (!answer) return std::nullopt;
    const std::string text = Trimmed(*answer);
    if (text.empty()) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
        session.host().ShowMessage("Length must be a number", title);
        return std::nullopt;
    }
    const double rounded = std::round(value);
    if (rounded < 1) return std::nullopt;
    // Any length beyond the longest possible word means no limit.
    return rounded >= kNoLengthLimit ? kNoLengthLimit : static_cast<int>(rounded);
}

}  // namespace tessarin
