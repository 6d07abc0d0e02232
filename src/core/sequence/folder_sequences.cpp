#include "sequence/folder_sequences.h"

#include <algorithm>

#include "sequence/sequence_file.h"

namespace tessarin {
namespace {

std::string Extension(const std::string& name) {
    const std::size_t dot = name.find('.');
    return dot == std::string::npos ? "" : name.substr(dot + 1);
}

bool Matches(const std::string& name, const std::string& extension) {
    if (extension.empty()) return name.find('.') == std::string::npos;
    const std::string ending = "." + extension;
    return name.size() >= ending.size() && name.compare(name.size() - ending.size(), ending.size(), ending) == 0;
}

}  // namespace

std::vector<std::string> FolderFiles(const std::filesystem::path& folder, const std::string& extension) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.empty() ? "." : folder)) {
        const std::string name = entry.path().filename().string();
        if (entry.is_regular_file() && Matches(name, extension)) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

FolderSequences::FolderSequences(const std::filesystem::path& chosen, const SequenceReading& reading)
    : chosen_(chosen), folder_(chosen.parent_path()), reading_(reading) {
    reading_.record.clear();
    if (ReadsAsFasta(chosen, reading_)) {
        std::vector<FastaRecord> records = ReadFastaRecords(chosen);
        if (records.size() > 1) {
            RequireUniqueIds(records, chosen);
            for (FastaRecord& record : records) {
                if (reading_.fold_to_capitals) FoldToCapitals(record.sequence);
                names_.push_back(std::move(record.id));
                record_texts_.push_back(std::move(record.sequence));
            }
            return;
        }
    }
    names_ = FolderFiles(folder_, Extension(chosen.filename().string()));
}

std::string FolderSequences::Source() const {
    return record_texts_.empty() ? FolderText(folder_) : chosen_.string();
}

std::string FolderSequences::BaseName(std::size_t i) const {
    return record_texts_.empty() ? FileBaseName(names_[i]) : names_[i];
}

std::string FolderSequences::Text(std::size_t i) const {
    if (!record_texts_.empty()) return record_texts_[i];
    return ReadSequence(folder_ / names_[i], reading_).text;
}

void FolderSequences::NameCurrent(CurrentSequence& sequence, std::size_t i) const {
    sequence.folder = folder_;
    if (record_texts_.empty()) {
        sequence.file_name = names_[i];
        sequence.record.clear();
    } else {
        sequence.file_name = chosen_.filename().string();
        sequence.record = names_[i];
    }
}

}  // namespace tessarin
