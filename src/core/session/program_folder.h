#pragma once

#include <string>

namespace tessarin {

// The folder of the running executable, ending with "/"; when it is not writable, a per-user
// data folder ($XDG_DATA_HOME/tessarin or ~/.local/share/tessarin), created when missing.
std::string DefaultProgramFolder();

// The folder of the running executable, ending with "/" (where the help file is shipped).
std::string ExecutableFolder();

}  // namespace tessarin
