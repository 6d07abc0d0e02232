#include "sequence/sequence_file_writer.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace tessarin {
namespace {

constexpr std::size_t kSymbolsPerLine = 64;
constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

void WriteSequenceFile(const std::filesystem::path& path, std::string_view text, SequenceLayout layout) {
    std::string content;
    if (layout == SequenceLayout::kOneLine) {
        content.append(text).append(kLineEnd);
    } else {
        const std::size_t width = layout == SequenceLayout::kLinesOf64 ? kSymbolsPerLine : 1;
        content.reserve(text.size() + (text.size() / width + 1) * kLineEnd.size());
        for (std::size_t start = 0; start < text.size(); start += width)
            content.append(text.substr(start, std::min(width, text.size() - start))).append(kLineEnd);
    }
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) throw SequenceWriteError("Cannot write the sequence file " + path.string());
}

}  // namespace tessarin
