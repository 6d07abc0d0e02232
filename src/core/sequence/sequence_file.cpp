#include "sequence/sequence_file.h"

#include <fstream>
#include <iterator>

#include "logfile/log_file.h"

namespace tessarin {

std::string ReadTextFile(const std::string& folder, const std::string& name) {
    const std::string path = JoinPath(folder, name);
    std::ifstream file(path, std::ios::binary);
    if (!file) throw SequenceFileError("Cannot read the sequence file " + path);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad()) throw SequenceFileError("Cannot read the sequence file " + path);
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        if (c != '\r' && c != '\n') text.push_back(c);
    }
    return text;
}

std::string FileBaseName(const std::string& name) {
    return name.substr(0, name.find('.'));
}

std::string ChooseSequenceFile(Session& session) {
    CurrentSequence& sequence = session.sequence();
    if (sequence.folder.empty()) sequence.folder = session.program_folder();
    const auto choice =
        session.host().ChooseFile(FileDialogKind::kOpen, FileChoice{sequence.folder, sequence.file_name}, "*.txt");
    if (!choice) return "";
    sequence.folder = choice->folder;
    sequence.file_name = choice->name;
    return ReadTextFile(sequence.folder, sequence.file_name);
}

int ChooseInputSequence(Session& session) {
    CurrentSequence& sequence = session.sequence();
    sequence.text.clear();
    sequence.text = ChooseSequenceFile(session);
    if (!sequence.text.empty()) session.host().ShowText("Input Sequence: " + sequence.file_name, sequence.text);
    return static_cast<int>(sequence.text.size());
}

}  // namespace tessarin
