#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "sequence/fasta_reader.h"

namespace tessarin {

// How the front end asks for a sequence file to be read.
struct SequenceReading {
    bool fasta = false;             // read as FASTA whatever the file's name
    std::string record;             // a record's ID or its number (1 = the first); empty: the first
    bool fold_to_capitals = false;  // soft-masked lower-case letters become capitals
};

// A sequence as read from its file.
struct SequenceText {
    std::string text;
    std::string record;  // the ID of the FASTA record it came from; empty for other files
};

// True when `path` is read as FASTA: by its name, or for any name when `reading` says so.
bool ReadsAsFasta(const std::filesystem::path& path, const SequenceReading& reading);

// The sequence of a file: a plain or gzip-compressed text with its line breaks removed, or the
// chosen record of a FASTA file. Throws SequenceFileError naming the file (and the record).
SequenceText ReadSequence(const std::filesystem::path& path, const SequenceReading& reading);

// The index of the record that `choice` names among `records`: an exact ID first, else a number
// from 1; the first record when `choice` is empty. An ID held by two records is refused, naming it.
std::size_t PickRecord(const std::vector<FastaRecord>& records, const std::string& choice,
                       const std::filesystem::path& path);

// Throws SequenceFileError naming the first ID that two records share.
void RequireUniqueIds(const std::vector<FastaRecord>& records, const std::filesystem::path& path);

// Turns the letters a-z into A-Z and leaves every other byte as it is.
void FoldToCapitals(std::string& text);

}  // namespace tessarin
