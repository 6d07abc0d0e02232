#pragma once

#include <string>

#include "session/session.h"

namespace tessarin {

// Makes `text` the current sequence text and rebuilds the alphabet from it: the distance commands
// leave behind the last text they measured, as a complexity run on the current sequence would.
void SetCurrentText(Session& session, const std::string& text);

// K_G of `text` by NVOGRAM, shown in the session's progress display under the base name of the
// current sequence file; 0 when the user cancels. `text` becomes the current sequence text.
float MeasureAsCurrentText(Session& session, const std::string& text);

}  // namespace tessarin
