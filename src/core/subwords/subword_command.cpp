#include "subwords/subword_command.h"

#include <charconv>
#include <cmath>
#include <new>

#include "common/trim.h"
#include "logfile/log_file.h"
#include "sequence/sequence_file.h"

namespace tessarin {

Outcome RunSubwordCommand(Session& session, const std::filesystem::path& input, const std::string& title,
                          const std::function<bool()>& report) {
    if (input.empty() || LoadInputSequence(session, input) == 0) return Outcome::kRefused;
    const double start_time = session.Now();
    bool reported = false;
    try {
        reported = report();
    } catch (const std::bad_alloc&) {
        throw SubwordMemoryError(title + ": Not enough memory for the subword search of a sequence of " +
                                 std::to_string(session.sequence().text.size()) + " symbols");
    }
    if (reported) ShowLogFile(session);
    const bool cancelled = session.Aborted();
    session.FinalNote(start_time);
    if (cancelled) return Outcome::kCancelled;
    return reported ? Outcome::kCompleted : Outcome::kRefused;
}

MaximumLengthAnswer ParseMaximumWordLength(std::string_view answer, int shortest_length) {
    const std::string text = Trim(answer, " \t");
    if (text.empty()) return {};
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
        return {std::nullopt, "Length must be a number"};
    }
    const double rounded = std::round(value);
    if (rounded < 1) return {};
    if (rounded < shortest_length) return {std::nullopt, "Length must be > " + std::to_string(shortest_length - 1)};
    return {rounded >= kNoLengthLimit ? kNoLengthLimit : static_cast<int>(rounded), ""};
}

}  // namespace tessarin
