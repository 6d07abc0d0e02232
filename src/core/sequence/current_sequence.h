#pragma once

#include <filesystem>
#include <string>

#include "sequence/alphabet.h"
#include "sequence/sequence_reading.h"

namespace tessarin {

// A folder as the reports print it: ending with the separator (empty when there is none).
inline std::string FolderText(const std::filesystem::path& folder) {
    return (folder / "").string();
}

// The sequence every analysis works on. A command that analyses it sets the alphabet from the
// text before it starts (the alphabet of an earlier text may still stand until then).
struct CurrentSequence {
    std::filesystem::path folder;
    std::string file_name;  // without folder, with extension
    std::string record;     // the ID of the FASTA record read from the file; empty for other files
    std::string text;       // one 8-bit character per symbol, line breaks removed
    Alphabet alphabet;
    // How the front end asks the next sequence files to be read; set before each command.
    SequenceReading reading;

    std::filesystem::path Path() const { return folder / file_name; }
    // The file name, and for a FASTA record ":" and its ID ("genes.fa:rpoB").
    std::string Name() const { return record.empty() ? file_name : file_name + ":" + record; }
    // The same with the folder, as report headers name the sequence.
    std::string PathName() const { return record.empty() ? Path().string() : Path().string() + ":" + record; }
    int AlphabetSize() const { return alphabet.Size(); }
};

}  // namespace tessarin
