#include "sequence/sequence_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "logfile/log_file.h"

namespace tessarin {

std::string ReadTextFile(const std::string& folder, const std::string& name) {
    const std::string path = JoinPath(folder, name);
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        throw SequenceFileError("Cannot read the sequence file " + path + ": it is a folder");
    }
    std::string bytes;
    try {
        std::ifstream file(path, std::ios::binary);
        if (!file) throw SequenceFileError("Cannot read the sequence file " + path);
        bytes.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        if (file.bad()) throw SequenceFileError("Cannot read the sequence file " + path);
    } catch (const std::ios_base::failure&) {
        // Special files (a device, a socket) fail inside the stream library with its own wording.
        throw SequenceFileError("Cannot read the sequence file " + path);
    }
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        if (c != '\r' && c != '\n') text.push_back(c);
    }
    return text;
}

std::string ReadTextFile(const std::filesystem::path& path) {
    return ReadTextFile(path.parent_path().string(), path.filename().string());
}

std::string FileBaseName(const std::string& name) {
    return name.substr(0, name.find('.'));
}

int LoadInputSequence(Session& session, const std::filesystem::path& path) {
    CurrentSequence& sequence = session.sequence();
    std::string folder = path.parent_path().string();
    if (!folder.empty() && folder.back() != '/') folder += '/';
    sequence.folder = folder;
    sequence.file_name = path.filename().string();
    sequence.text.clear();
    sequence.text = ReadTextFile(sequence.folder, sequence.file_name);
    if (!sequence.text.empty()) session.host().ShowText("Input Sequence: " + sequence.file_name, sequence.text);
    return static_cast<int>(sequence.text.size());
}

}  // namespace tessarin
