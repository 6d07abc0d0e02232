#include "sequence/sequence_reading.h"

#include <algorithm>
#include <charconv>
#include <unordered_set>

#include "sequence/gzip_stream.h"
#include "sequence/regular_file.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_format.h"

namespace tessarin {
namespace {

std::string TwoRecordsMessage(const std::string& id) {
    return "the ID " + id + " belongs to two records";
}

}  // namespace

bool ReadsAsFasta(const std::filesystem::path& path, const SequenceReading& reading) {
    return reading.fasta || FormatOfName(path.filename().string()) == SequenceFormat::kFasta;
}

void RequireUniqueIds(const std::vector<FastaRecord>& records, const std::filesystem::path& path) {
    std::unordered_set<std::string> seen;
    for (const FastaRecord& record : records) {
        if (!seen.insert(record.id).second)
            throw SequenceFileError(CannotReadMessage(path, TwoRecordsMessage(record.id)));
    }
}

std::size_t PickRecord(const std::vector<FastaRecord>& records, const std::string& choice,
                       const std::filesystem::path& path) {
    if (choice.empty()) return 0;
    const auto named = [&choice](const FastaRecord& record) { return record.id == choice; };
    const auto by_id = std::find_if(records.begin(), records.end(), named);
    if (by_id != records.end()) {
        if (std::count_if(by_id, records.end(), named) > 1) {
            throw SequenceFileError(CannotReadMessage(path, TwoRecordsMessage(choice)));
        }
        return static_cast<std::size_t>(by_id - records.begin());
    }
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(choice.data(), choice.data() + choice.size(), number);
    if (error == std::errc() && end == choice.data() + choice.size() && number >= 1 && number <= records.size()) {
        return number - 1;
    }
    throw SequenceFileError(
        CannotReadMessage(path, "it has no record " + choice + " (" + std::to_string(records.size()) + " records)"));
}

SequenceText ReadSequence(const std::filesystem::path& path, const SequenceReading& reading) {
    SequenceText result;
    if (ReadsAsFasta(path, reading)) {
        std::vector<FastaRecord> records = ReadFastaRecords(path);
        FastaRecord& record = records[PickRecord(records, reading.record, path)];
        result.text = std::move(record.sequence);
        result.record = std::move(record.id);
    } else if (FormatOfName(path.filename().string()) == SequenceFormat::kGzipText) {
        result.text = GzipStream(path).ReadAll();
        std::erase_if(result.text, [](char c) { return c == '\r' || c == '\n'; });
    } else {
        result.text = ReadTextFile(path);
    }
    if (reading.fold_to_capitals) FoldToCapitals(result.text);
    return result;
}

void FoldToCapitals(std::string& text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
}

}  // namespace tessarin
