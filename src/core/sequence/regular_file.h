#pragma once

#include <filesystem>
#include <string>

namespace tessarin {

// Throws SequenceFileError unless `path` names a regular file that can be read: a missing file,
// a folder, a FIFO, a device, a socket and anything under /proc or /sys are refused by name
// without opening them, so a FIFO with no writer cannot block the program.
void RequireRegularFile(const std::filesystem::path& path);

// "Cannot read the sequence file <path>" followed by ": " and `reason` when one is given.
std::string CannotReadMessage(const std::filesystem::path& path, const std::string& reason = "");

}  // namespace tessarin
