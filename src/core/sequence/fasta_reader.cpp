#include "sequence/fasta_reader.h"

#include <htslib/kseq.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "sequence/gzip_stream.h"
#include "sequence/regular_file.h"
#include "sequence/sequence_file.h"

namespace tessarin {
namespace {

// What kseq reads from: the file's bytes, checked on the way for what kseq would pass over in
// silence (it skips anything before the first ">" and takes NUL bytes as letters).
struct FastaSource {
    GzipStream stream;
    bool header_seen = false;
    long line = 1;  // the line reached before the first header
};

[[noreturn]] void Refuse(const FastaSource& source, const std::string& reason) {
    throw SequenceFileError(CannotReadMessage(source.stream.path(), reason));
}

void CheckChunk(FastaSource& source, const unsigned char* bytes, int size) {
    if (std::memchr(bytes, '\0', static_cast<std::size_t>(size)) != nullptr) {
        Refuse(source, "it holds binary data, not FASTA text");
    }
    for (int i = 0; i < size && !source.header_seen; ++i) {
        const unsigned char c = bytes[i];
        if (c == '>') {
            source.header_seen = true;
        } else if (c == '\n') {
            ++source.line;
        } else if (c != '\r' && c != ' ' && c != '\t') {
            Refuse(source, "line " + std::to_string(source.line) + " should be a header starting with \">\"");
        }
    }
}

int ReadFastaChunk(FastaSource* source, unsigned char* buffer, int size) {
    const int got = source->stream.Read(buffer, size);
    CheckChunk(*source, buffer, got);
    return got;
}

// kseq's reader over our source, local to this file.
KSEQ_INIT(FastaSource*, ReadFastaChunk)

struct KseqDeleter {
    void operator()(kseq_t* seq) const { kseq_destroy(seq); }
};

}  // namespace

std::vector<FastaRecord> ReadFastaRecords(const std::filesystem::path& path) {
    FastaSource source{GzipStream(path)};
    const std::unique_ptr<kseq_t, KseqDeleter> seq(kseq_init(&source));
    std::vector<FastaRecord> records;
    for (;;) {
        // kseq also takes "@" for a header (of FASTQ); in a FASTA file it ends the record before.
        const bool fastq_header = seq->last_char == '@';
        const int length = kseq_read(seq.get());
        if (length == -1) break;
        const std::size_t number = records.size() + 1;
        if (fastq_header)
            Refuse(source, "after record " + records.back().id + ": a line starts with \"@\" as in FASTQ");
        FastaRecord record{std::string(seq->name.s, seq->name.l), std::string(seq->seq.s, seq->seq.l)};
        if (record.id.empty()) Refuse(source, "record " + std::to_string(number) + " has no ID after \">\"");
        if (length < -1 || seq->qual.l > 0) {
            Refuse(source, "record " + record.id + ": a line starts with \"+\" as in FASTQ");
        }
        // kseq drops the CR of a CR LF line end but keeps a CR on a line of its own.
        std::erase(record.sequence, '\r');
        if (record.sequence.empty()) Refuse(source, "record " + record.id + " has no sequence");
        records.push_back(std::move(record));
    }
    if (records.empty()) Refuse(source, source.header_seen ? "record 1 has no ID after \">\"" : "it is empty");
    return records;
}

}  // namespace tessarin
