#pragma once

#include "session/command.h"

namespace tessarin {

// "Display Sequence File": choose a sequence and report its summary, logged to the scratch log
// in the program's folder, which is rewritten from the start each time.
Outcome DisplaySequenceFile(Session& session);

}  // namespace tessarin
