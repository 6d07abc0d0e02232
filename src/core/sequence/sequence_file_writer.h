#pragma once

#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace tessarin {

// How a sequence text is laid out in the lines of a sequence file.
enum class SequenceLayout {
    kOneLine,        // the whole sequence as one line
    kLinesOf64,      // lines of 64 symbols, the last holding the rest
    kSymbolPerLine,  // one symbol per line
};

// A sequence file that could not be written; the message names the file.
class SequenceWriteError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Writes `text` to `path` (created or truncated) in `layout`, each line ended by CR LF. An empty
// text writes an empty file in every layout except kOneLine, which writes one empty line.
void WriteSequenceFile(const std::filesystem::path& path, std::string_view text, SequenceLayout layout);

}  // namespace tessarin
