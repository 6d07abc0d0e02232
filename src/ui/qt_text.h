#pragma once

#include <QString>
#include <filesystem>
#include <string>

namespace tessarin {

// The core keeps texts as 8-bit strings; these are the conversions at the window edge.

// File names and paths, in the file system's own encoding.
QString FromPath(const std::filesystem::path& path);
std::filesystem::path ToPath(const QString& path);

// Lines, captions and messages: UTF-8 when the bytes are valid UTF-8 (file names in report
// lines), otherwise one character per byte (sequence letters of an 8-bit alphabet).
QString FromDisplayText(const std::string& text);

// Sequence texts and typed answers: one byte per character, never re-encoded.
QString FromBytes(const std::string& bytes);
std::string ToBytes(const QString& text);

}  // namespace tessarin
