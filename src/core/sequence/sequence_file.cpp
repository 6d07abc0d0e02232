#include "sequence/sequence_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "sequence/regular_file.h"
#include "sequence/sequence_reading.h"

namespace tessarin {

std::string ReadTextFile(const std::filesystem::path& path) {
    RequireRegularFile(path);
    std::string bytes;
    try {
        std::ifstream file(path, std::ios::binary);
        if (!file) throw SequenceFileError("Cannot read the sequence file " + path.string());
        bytes.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        if (file.bad()) throw SequenceFileError("Cannot read the sequence file " + path.string());
    } catch (const std::ios_base::failure&) {
        // Special files (a device, a socket) fail inside the stream library with its own wording.
        throw SequenceFileError("Cannot read the sequence file " + path.string());
    }
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

int LoadInputSequence(Session& session, const std::filesystem::path& path) {
    CurrentSequence& sequence = session.sequence();
    sequence.folder = path.parent_path();
    sequence.file_name = path.filename().string();
    sequence.record.clear();
    sequence.text.clear();
    SequenceText read = ReadSequence(path, sequence.reading);
    sequence.record = std::move(read.record);
    sequence.text = std::move(read.text);
    if (!sequence.text.empty()) session.host().ShowText("Input Sequence: " + sequence.Name(), sequence.text);
    return static_cast<int>(sequence.text.size());
}

}  // namespace tessarin
