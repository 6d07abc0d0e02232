#include "sequence/sequence_format.h"

#include <array>
#include <cctype>

namespace tessarin {
namespace {

constexpr std::array<std::string_view, 8> kFastaEndings{".fa",  ".fasta", ".fna", ".ffn",
                                                        ".faa", ".frn",   ".fas", ".mpfa"};

bool EndsWith(std::string_view name, std::string_view ending) {
    if (name.size() < ending.size()) return false;
    const std::string_view tail = name.substr(name.size() - ending.size());
    for (std::size_t i = 0; i < ending.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(tail[i])) != ending[i]) return false;
    }
    return true;
}

}  // namespace

SequenceFormat FormatOfName(std::string_view file_name) {
    const bool gzip = EndsWith(file_name, ".gz");
    if (gzip) file_name.remove_suffix(3);
    for (const std::string_view ending : kFastaEndings) {
        if (EndsWith(file_name, ending)) return SequenceFormat::kFasta;
    }
    return gzip ? SequenceFormat::kGzipText : SequenceFormat::kPlainText;
}

}  // namespace tessarin
