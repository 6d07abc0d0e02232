#pragma once

#include <filesystem>

#include "session/command.h"

namespace tessarin {

// "Display Sequence File": makes `input` the current sequence and reports its summary, logged to
// the scratch log in the program's folder, which is rewritten from the start each time.
Outcome DisplaySequenceFile(Session& session, const std::filesystem::path& input);

}  // namespace tessarin
