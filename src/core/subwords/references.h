#pragma once

#include "session/command.h"

namespace tessarin {

// The Help menu's references command: writes the text to "Reference.txt" in the program's folder,
// rewritten from the start each time, and shows it.
Outcome RunReferences(Session& session);

}  // namespace tessarin
