#include "sequence/fasta_reader.h"

#include <gtest/gtest.h>

#include "sequence/sequence_file.h"
#include "support/gzip_file.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

using testing::TempFolder;
using testing::WriteGzip;

std::vector<std::pair<std::string, std::string>> Pairs(const std::vector<FastaRecord>& records) {
    std::vector<std::pair<std::string, std::string>> pairs;
    for (const FastaRecord& record : records)
        pairs.emplace_back(record.id, record.sequence);
    return pairs;
}

const std::vector<std::pair<std::string, std::string>> kGenes{{"rpoB", "ACGTacgtNN"}, {"gyrA", "TTGA"}};

// Catches CRs left in sequences or IDs, the description taken into the ID, lines joined with
// something between them, case folded, blank lines kept, and gzip input read differently.
TEST(ReadFastaRecordsTest, LfCrLfAndGzipFilesGiveTheSameRecords) {
    TempFolder folder;
    const std::string lf = ">rpoB RNA polymerase beta\nACGT\nacgt\n\nNN\n>gyrA\nTTGA\n";
    std::string crlf;
    for (const char c : lf)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    folder.Write("lf.fa", lf);
    folder.Write("crlf.fa", crlf);
    folder.Write("last_line_open.fa", ">rpoB\nACGTacgt\r\nNN\r\n\r\n>gyrA\r\nTTGA");
    WriteGzip(folder.Path("genes.fa.gz"), crlf);
    for (const char* name : {"lf.fa", "crlf.fa", "last_line_open.fa", "genes.fa.gz"}) {
        EXPECT_EQ(Pairs(ReadFastaRecords(folder.Path(name))), kGenes) << name;
    }
}

// The file's name does not matter to the reader itself, and gzip data is recognised by content.
TEST(ReadFastaRecordsTest, ReadsGzipDataWhateverTheName) {
    TempFolder folder;
    WriteGzip(folder.Path("genes.fa"), ">rpoB\nACGTacgtNN\n>gyrA\nTTGA\n");
    EXPECT_EQ(Pairs(ReadFastaRecords(folder.Path("genes.fa"))), kGenes);
}

struct BadFile {
    const char* label;
    std::string_view bytes;
    bool gzip;
    const char* reason;  // what follows "Cannot read the sequence file <path>: "
};

class BadFastaTest : public ::testing::TestWithParam<BadFile> {};

// Each bad file gives one message naming the file and, where it matters, the record or line.
TEST_P(BadFastaTest, IsRefusedWithOneClearMessage) {
    const BadFile& bad = GetParam();
    TempFolder folder;
    const std::string path = folder.Path(std::string(bad.label) + ".fa");
    const std::string bytes(bad.bytes);
    if (bad.gzip) {
        WriteGzip(path, bytes, 10);
    } else {
        folder.Write(std::string(bad.label) + ".fa", bytes);
    }
    try {
        ReadFastaRecords(path);
        FAIL() << "no error for " << bad.label;
    } catch (const SequenceFileError& error) {
        EXPECT_EQ(std::string(error.what()), "Cannot read the sequence file " + path + ": " + bad.reason);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadFastaTest,
    ::testing::Values(
        BadFile{"empty", "", false, "it is empty"}, BadFile{"blank", "\r\n\n  \n", false, "it is empty"},
        BadFile{"no_sequence", ">a\nAC\n>b desc\n\n>c\nGT\n", false, "record b has no sequence"},
        BadFile{"last_no_sequence", ">a\nAC\n>b\n", false, "record b has no sequence"},
        BadFile{"no_header", "\n\nACGT\n>a\nAC\n", false, "line 3 should be a header starting with \">\""},
        BadFile{"binary",
                std::string_view("\x7f"
                                 "ELF\x02\x01\x01\0\0\0",
                                 10),
                false, "it holds binary data, not FASTA text"},
        BadFile{"no_id", ">a\nAC\n> b\nGT\n", false, "record 2 has no ID after \">\""},
        BadFile{"lone_header", ">", false, "record 1 has no ID after \">\""},
        BadFile{"fastq", ">a\nAC\n+\nII\n", false, "record a: a line starts with \"+\" as in FASTQ"},
        BadFile{"fastq_header", ">a\nAC\n@b\nGT\n", false, "after record a: a line starts with \"@\" as in FASTQ"},
        BadFile{"truncated", ">a\nACGTACGTTTGACCAGGATTACAGATTACA\n", true,
                "the gzip data ends too early (truncated file)"}),
    [](const ::testing::TestParamInfo<BadFile>& info) { return std::string(info.param.label); });

}  // namespace
}  // namespace tessarin
