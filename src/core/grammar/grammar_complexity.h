#pragma once

#include <string>

#include "session/session.h"

namespace tessarin {

// K_G of the current sequence text by `method`, 0 for a text shorter than 2 symbols. With
// kReportFlag it also starts the run on the main window and writes the report to
// "<base>.log" (numbered when taken) beside the sequence file.
float GrammarComplexity(Session& session, int method, int flags);

// K_G of `text` by NVOGRAM, with no report, log or verification. The text becomes the current
// sequence text and its alphabet the current alphabet, which the callers rely on.
float GrammarComplexityOfText(Session& session, const std::string& text);

}  // namespace tessarin
