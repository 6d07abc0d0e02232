#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tessarin {

// One record of a FASTA file: the first word of its header line (without ">") and its sequence
// lines joined, line breaks removed, letters as they are.
struct FastaRecord {
    std::string id;
    std::string sequence;
};

// The records of a FASTA file, gzip-compressed or not, in file order. Throws SequenceFileError,
// naming the file and the record or line, for an empty file, a file that does not start with a
// ">" header, binary data, a record without ID or without sequence, FASTQ lines and damaged or
// truncated gzip data.
std::vector<FastaRecord> ReadFastaRecords(const std::filesystem::path& path);

}  // namespace tessarin
