#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "sequence/current_sequence.h"
#include "sequence/sequence_reading.h"

namespace tessarin {

// The files of `folder` that match "*.<extension>" (with an empty extension: the names without
// a "."), in name order so that a run over a folder can be repeated exactly.
std::vector<std::string> FolderFiles(const std::filesystem::path& folder, const std::string& extension);

// The sequences that a folder run goes over: the records of the chosen file, in file order, when
// it is read as FASTA and holds several; otherwise every file of its folder that has its extension
// (the part of its name after the first "."), in name order.
class FolderSequences {
  public:
    // Throws SequenceFileError for a FASTA file that cannot be read or that gives one ID to two records.
    FolderSequences(const std::filesystem::path& chosen, const SequenceReading& reading);

    std::size_t size() const { return names_.size(); }
    // Where the run's log goes: the folder of the chosen file.
    const std::filesystem::path& folder() const { return folder_; }
    // What the run goes over, as its report names it: the folder, or the file of the records.
    std::string Source() const;
    // The files' names, or the records' IDs.
    const std::vector<std::string>& names() const { return names_; }
    // The name of sequence i in a distance table: a file's base name, or a record's whole ID (IDs
    // such as "NC_008253.1" keep their dots).
    std::string BaseName(std::size_t i) const;
    // The text of sequence i; a file is read only now.
    std::string Text(std::size_t i) const;
    // Names sequence i as the current sequence (folder, file name, record), leaving its text.
    void NameCurrent(CurrentSequence& sequence, std::size_t i) const;

  private:
    std::filesystem::path chosen_;
    std::filesystem::path folder_;
    SequenceReading reading_;
    std::vector<std::string> names_;
    std::vector<std::string> record_texts_;  // empty for the files of a folder
};

}  // namespace tessarin
