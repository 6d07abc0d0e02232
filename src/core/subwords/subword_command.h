#pragma once

#include <functional>
#include <optional>
#include <string>

#include "session/command.h"

namespace tessarin {

// The tail of every subword command, after its input was chosen: notes the start time, runs the
// analysis (which answers whether it wrote a report), shows the report and ends with the final
// note. kCancelled when the user aborted, kRefused when the sequence was too short to analyse.
Outcome RunTimedAnalysis(Session& session, const std::function<bool()>& analysis);

// Asks "Specify Maximum Word Length" under `title`, proposing the current sequence's length, and
// reads the answer as a number rounded to a whole one. Nothing when the box was cancelled or the
// answer is empty or below 1; an answer that is not a number is refused with a message.
std::optional<int> AskMaximumWordLength(Session& session, const std::string& title);

}  // namespace tessarin
