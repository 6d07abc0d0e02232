#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include "session/session.h"

namespace tessarin {

// A sequence file that could not be read; the message names the file.
class SequenceFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The lines of an 8-bit text file joined with nothing between them. A line ends at CR LF, a
// lone CR or a lone LF; every other byte, blanks and tabs included, is a symbol. Only a regular
// file is read (see RequireRegularFile).
std::string ReadTextFile(const std::filesystem::path& path);

// The part of a file name before its first "." (the whole name when it has none).
std::string FileBaseName(const std::string& name);

// Makes the file at `path` the current sequence (folder, name, record and text), read as the
// current sequence's `reading` asks, and shows it in a text window; returns its length (0 for an empty file: the
// command then stops). The front ends choose the file before a command runs and hand it over in the command's
// parameters.
int LoadInputSequence(Session& session, const std::filesystem::path& path);

}  // namespace tessarin
