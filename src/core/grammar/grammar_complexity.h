#pragma once

#include <optional>
#include <string_view>

#include "grammar/method.h"
#include "session/progress.h"
#include "session/session.h"

namespace tessarin {

// K_G of any text by `method`, with no report, log or verification and no session: 0 for a text
// shorter than 2 symbols, nothing when `progress` answers that the user cancelled. Safe to call
// on many threads at once.
std::optional<float> GrammarComplexityOfText(std::string_view text, Method method, const ProgressFn& progress);

// K_G of the current sequence by `method`, after setting its alphabet from its text. With `report`
// it clears the main window and starts the run there, writes "<base>.log" (numbered when taken)
// beside the sequence file with the summary and the grammar, and shows the log. The grammar is
// verified; a failure is shown in a message box and the value still returned. 0 for a text
// shorter than 2 symbols (the start lines are still shown); nothing when the user cancels.
std::optional<float> CurrentSequenceComplexity(Session& session, Method method, bool report);

}  // namespace tessarin
