#include "generate/sequence_edit.h"

#include <fstream>

#include "logfile/log_file.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"

namespace tessarin {

std::string EditOutputName(const std::string& sequence_file_name) {
    return FileBaseName(sequence_file_name) + "_1.txt";
}

std::string AlphabetText(std::string_view text) {
    const Alphabet alphabet = BuildAlphabet(text);
    return {alphabet.letters.begin(), alphabet.letters.end()};
}

void PrintEditStart(Session& session, const std::string& title) {
    Host& host = session.host();
    const CurrentSequence& sequence = session.sequence();
    host.PrintMainLine("");
    host.PrintMainLine(title);
    host.PrintMainLine("Sequence " + sequence.PathName());
}

void ReportEditSummary(Session& session) {
    session.log() = LogTarget{kScratchLogName, session.program_folder()};
    OpenLogFile(session, 1);
    SetAlphabetAndReport(session);
}

void WriteEditFile(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw SequenceEditError("Cannot write the sequence file " + path.string());
}

}  // namespace tessarin
