#include "sequence/regular_file.h"

#include "sequence/sequence_file.h"

namespace tessarin {
namespace {

// The kernel's pseudo-files claim to be regular but have no fixed contents (and some never end).
bool IsKernelFile(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::path real = std::filesystem::weakly_canonical(path, error);
    const auto first = real.begin();
    if (error || first == real.end() || std::next(first) == real.end()) return false;
    const std::filesystem::path top = *std::next(first);
    return top == "proc" || top == "sys";
}

}  // namespace

std::string CannotReadMessage(const std::filesystem::path& path, const std::string& reason) {
    std::string message = "Cannot read the sequence file " + path.string();
    return reason.empty() ? message : message + ": " + reason;
}

void RequireRegularFile(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        throw SequenceFileError(CannotReadMessage(path, "there is no such file"));
    }
    if (error) throw SequenceFileError(CannotReadMessage(path, error.message()));
    if (status.type() == std::filesystem::file_type::directory) {
        throw SequenceFileError(CannotReadMessage(path, "it is a folder"));
    }
    if (status.type() != std::filesystem::file_type::regular || IsKernelFile(path)) {
        throw SequenceFileError(CannotReadMessage(path, "it is not a regular file"));
    }
}

}  // namespace tessarin
