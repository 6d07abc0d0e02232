#pragma once

#include <string_view>

namespace tessarin {

// How a sequence file is read, told by its name.
enum class SequenceFormat {
    kPlainText,  // every byte but the line breaks is a symbol
    kGzipText,   // the same, after gzip decompression
    kFasta,      // records of a header line and sequence lines, gzip-compressed or not
};

// FASTA for the usual FASTA endings (.fa, .fasta, .fna, .ffn, .faa, .frn, .fas, .mpfa), each
// optionally followed by .gz; gzip text for any other name ending in .gz; plain text otherwise.
// The endings are matched without regard to case, as sequence archives spell them both ways.
SequenceFormat FormatOfName(std::string_view file_name);

}  // namespace tessarin
