#pragma once

#include <filesystem>

namespace tessarin {

// The folder of the running executable; when it is not writable, a per-user data folder
// ($XDG_DATA_HOME/tessarin or ~/.local/share/tessarin), created when missing.
std::filesystem::path DefaultProgramFolder();

// The folder of the running executable (where the help file is shipped).
std::filesystem::path ExecutableFolder();

}  // namespace tessarin
