#include "session/program_folder.h"

#include <unistd.h>

#include <cstdlib>

namespace tessarin {
namespace {

std::filesystem::path UserDataFolder() {
    const char* xdg = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    std::filesystem::path base = (xdg != nullptr && *xdg != '\0') ? std::filesystem::path(xdg)
                                 : home != nullptr                ? std::filesystem::path(home) / ".local/share"
                                                                  : std::filesystem::temp_directory_path();
    const std::filesystem::path folder = base / "tessarin";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return folder;
}

}  // namespace

std::filesystem::path ExecutableFolder() {
    std::error_code error;
    const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) return std::filesystem::current_path(error);
    return executable.parent_path();
}

std::filesystem::path DefaultProgramFolder() {
    const std::filesystem::path folder = ExecutableFolder();
    if (access(folder.c_str(), W_OK) == 0) return folder;
    return UserDataFolder();
}

}  // namespace tessarin
