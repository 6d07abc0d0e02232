#include <gtest/gtest.h>
#include <sys/stat.h>

#include <sstream>
#include <string>
#include <vector>

#include "session/random_generator.h"
#include "support/cli_test.h"
#include "support/gzip_file.h"

namespace tessarin {
namespace {

using testing::ProgramResult;
using testing::Quoted;
using testing::TempFolder;
using testing::WriteGzip;

// A DNA-like text with repeats, so that the grammar has rules to find. Fixed seed per text.
std::string Dna(int seed, int length) {
    RandomGenerator random(static_cast<std::uint64_t>(seed));
    std::string text;
    while (static_cast<int>(text.size()) < length) {
        if (text.size() > 20 && random.Next() < 0.3) {
            const std::size_t from = static_cast<std::size_t>(random.Index(static_cast<int>(text.size()) - 10)) - 1;
            text += text.substr(from, 8);
        } else {
            text += "ACGT"[random.Index(4) - 1];
        }
    }
    return text.substr(0, static_cast<std::size_t>(length));
}

// `text` in lines of `width` letters, each ended by `line_end`.
std::string Lines(const std::string& text, std::size_t width, const std::string& line_end) {
    std::string lines;
    for (std::size_t at = 0; at < text.size(); at += width)
        lines += text.substr(at, width) + line_end;
    return lines;
}

std::string Record(const std::string& id, const std::string& text, const std::string& line_end = "\n") {
    return ">" + id + " a test record" + line_end + Lines(text, 60, line_end);
}

// The lines of a report from line `first` (counted from 0) on.
std::string LinesFrom(const std::string& text, int first) {
    std::size_t at = 0;
    for (int line = 0; line < first && at != std::string::npos; ++line) {
        at = text.find('\n', at);
        if (at != std::string::npos) ++at;
    }
    return at == std::string::npos ? "" : text.substr(at);
}

std::string Without(std::string text, const std::string& part) {
    for (std::size_t at; (at = text.find(part)) != std::string::npos;)
        text.erase(at, part.size());
    return text;
}

class CliFastaTest : public testing::CliTest {
  protected:
    const std::string dna_ = Dna(11, 700);
    const std::vector<std::pair<std::string, std::string>> genes_{
        {"alpha", Dna(1, 300)}, {"beta", dna_}, {"gamma", Dna(3, 260)}};

    std::string Genes() const {
        std::string fasta;
        for (const auto& [id, text] : genes_)
            fasta += Record(id, text);
        return fasta;
    }
};

// One sequence as plain text, LF and CR LF FASTA, gzip text, gzip FASTA and a record of a
// multi-record file (picked by ID and by number) gives the same report below the header; catches
// a header, a CR or a line break taken as a symbol, gzip data left compressed, and the wrong record.
TEST_F(CliFastaTest, EveryFormOfOneSequenceGivesTheSameReport) {
    data_.Write("plain.txt", Lines(dna_, 70, "\r\n"));
    data_.Write("lf.fa", Record("dna", dna_));
    data_.Write("crlf.fasta", Record("dna", dna_, "\r\n"));
    WriteGzip(data_.Path("text.txt.gz"), Lines(dna_, 50, "\n"));
    WriteGzip(data_.Path("genome.fna.gz"), Record("NC_1", dna_));
    data_.Write("genes.fa", Genes());
    const ProgramResult plain = Cli("complexity " + Quoted(data_.Path("plain.txt")));
    ASSERT_EQ(plain.status, 0) << plain.err;
    const std::string expected_log = LinesFrom(data_.Read("plain.log"), 3);
    const std::string expected_out = LinesFrom(Masked(plain.out), 2);
    struct Form {
        std::string arguments, log, sequence_line;
    };
    const std::vector<Form> forms{
        {"lf.fa", "lf.log", "Sequence {FOLDER}lf.fa:dna"},
        {"crlf.fasta", "crlf.log", "Sequence {FOLDER}crlf.fasta:dna"},
        {"text.txt.gz", "text.log", "Sequence {FOLDER}text.txt.gz"},
        {"genome.fna.gz", "genome.log", "Sequence {FOLDER}genome.fna.gz:NC_1"},
        {"--record beta genes.fa", "genes.log", "Sequence {FOLDER}genes.fa:beta"},
        {"--record 2 genes.fa", "genes_1.log", "Sequence {FOLDER}genes.fa:beta"},
    };
    for (const Form& form : forms) {
        std::string arguments = form.arguments;
        const std::size_t name_at = arguments.rfind(' ') == std::string::npos ? 0 : arguments.rfind(' ') + 1;
        arguments.replace(name_at, std::string::npos, Quoted(data_.Path(arguments.substr(name_at))));
        const ProgramResult result = Cli("complexity " + arguments);
        ASSERT_EQ(result.status, 0) << form.arguments << ": " << result.err;
        const std::string log = data_.Read(form.log);
        EXPECT_EQ(LinesFrom(log, 3), expected_log) << form.arguments;
        EXPECT_NE(Masked(log).find(form.sequence_line + "\r\n"), std::string::npos) << form.arguments;
        EXPECT_EQ(LinesFrom(Masked(result.out), 2), expected_out) << form.arguments;
    }
}

// Catches --upper folding other bytes than a-z, or folding without being asked, and --fasta ignored.
TEST_F(CliFastaTest, UpperFoldsSoftMaskedLettersAndFastaReadsAnyName) {
    data_.Write("masked.seq", ">chr1\nACGTacgtNNnn-\n");
    data_.Write("capitals.txt", "ACGTACGTNNNN-\n");
    const auto summary = [this](const std::string& arguments) {
        const ProgramResult result = Cli("display " + arguments);
        EXPECT_EQ(result.status, 0) << arguments << ": " << result.err;
        return LinesFrom(result.out, 2);
    };
    const std::string masked = Quoted(data_.Path("masked.seq"));
    EXPECT_EQ(summary("--fasta --upper " + masked), summary(Quoted(data_.Path("capitals.txt"))));
    EXPECT_NE(summary("--fasta " + masked).find("Alphabet: -ACGNTacgnt"), std::string::npos);
    EXPECT_NE(summary(masked).find("Alphabet Size = 15 letters"), std::string::npos);  // read as plain text
}

// Catches a missing record falling back to the first, and --record where it means nothing.
TEST_F(CliFastaTest, UnknownRecordIsRefusedAndRecordDoesNotGoWithFolderRuns) {
    data_.Write("genes.fa", Genes());
    const ProgramResult missing = Cli("complexity --record delta " + Quoted(data_.Path("genes.fa")));
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err,
              "Cannot read the sequence file " + data_.Path("genes.fa") + ": it has no record delta (3 records)\n");
    EXPECT_FALSE(data_.Exists("genes.log"));
    const ProgramResult folder = Cli("complexity --folder --record 2 " + Quoted(data_.Path("genes.fa")));
    EXPECT_EQ(folder.status, 2);
    EXPECT_NE(folder.err.find("--record does not go with --folder"), std::string::npos) << folder.err;
    EXPECT_EQ(Cli("tree --record 2 " + Quoted(data_.Path("genes.fa"))).status, 2);
}

// The folder runs over the records of one file match the same runs over one file per record
// (plain text, and single-record FASTA files); catches records out of order, record IDs cut at a
// dot like file names, a single-record file taken for a folder of records, and logs put elsewhere.
TEST_F(CliFastaTest, FolderRunsOverRecordsMatchRunsOverOneFilePerRecord) {
    data_.Write("genes.fa", Genes());
    TempFolder texts;
    TempFolder single_records;
    for (const auto& [id, text] : genes_) {
        texts.Write(id + ".txt", Lines(text, 60, "\r\n"));
        single_records.Write(id + ".fa", Record(id, text));
    }
    ASSERT_EQ(Cli("complexity --folder " + Quoted(data_.Path("genes.fa"))).status, 0);
    ASSERT_EQ(Cli("complexity --folder " + Quoted(texts.Path("alpha.txt"))).status, 0);
    ASSERT_EQ(Cli("complexity --folder " + Quoted(single_records.Path("beta.fa"))).status, 0);
    const std::string statistics = LinesFrom(data_.Read("Statistics.log"), 3);
    EXPECT_NE(statistics.find("1. alpha\t K ="), std::string::npos) << statistics;
    EXPECT_EQ(statistics, Without(LinesFrom(texts.Read("Statistics.log"), 3), ".txt"));
    EXPECT_EQ(statistics, Without(LinesFrom(single_records.Read("Statistics.log"), 3), ".fa"));

    ASSERT_EQ(Cli("tree " + Quoted(data_.Path("genes.fa"))).status, 0);
    ASSERT_EQ(Cli("tree " + Quoted(texts.Path("gamma.txt"))).status, 0);
    ASSERT_EQ(Cli("tree " + Quoted(single_records.Path("alpha.fa"))).status, 0);
    const std::string similar = Masked(data_.Read("Similar.log"));
    EXPECT_NE(similar.find("d( beta, alpha ) ="), std::string::npos) << similar;
    EXPECT_EQ(similar, Masked(texts.Read("Similar.log")));
    EXPECT_EQ(similar, Masked(single_records.Read("Similar.log")));
}

// Catches records with one ID run (and named) twice, and a log begun before the refusal.
TEST_F(CliFastaTest, FolderRunsRefuseAnIdThatAppearsTwice) {
    data_.Write("genes.fa", Genes() + Record("beta", Dna(4, 100)));
    for (const char* command : {"complexity --folder ", "tree "}) {
        const ProgramResult result = Cli(command + Quoted(data_.Path("genes.fa")));
        EXPECT_EQ(result.status, 1) << command;
        EXPECT_EQ(result.err,
                  "Cannot read the sequence file " + data_.Path("genes.fa") + ": the ID beta belongs to two records\n");
    }
    EXPECT_FALSE(data_.Exists("Statistics.log"));
    EXPECT_FALSE(data_.Exists("Similar.log"));
}

struct BadFile {
    const char* name;
    std::string_view bytes;
    bool gzip;
    const char* reason;
};

class CliBadFastaTest : public CliFastaTest, public ::testing::WithParamInterface<BadFile> {};

// Each bad file: one line naming it (and the record or line), exit status 1, no report.
TEST_P(CliBadFastaTest, GivesOneClearLineAndNoReport) {
    const BadFile& bad = GetParam();
    if (bad.gzip) {
        WriteGzip(data_.Path(bad.name), std::string(bad.bytes), 8);
    } else {
        data_.Write(bad.name, std::string(bad.bytes));
    }
    const ProgramResult result = Cli("complexity " + Quoted(data_.Path(bad.name)));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "Cannot read the sequence file " + data_.Path(bad.name) + ": " + bad.reason + "\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(data_.Folder()), {}), 1) << "a report was begun";
}

INSTANTIATE_TEST_SUITE_P(
    Files, CliBadFastaTest,
    ::testing::Values(BadFile{"empty.fa", "", false, "it is empty"},
                      BadFile{"no_sequence.fa", ">a\nACGT\n>b\n>c\nGT\n", false, "record b has no sequence"},
                      BadFile{"truncated.fna.gz", ">a\nACGTTGCAACGTTGCAGGATTACA\n", true,
                              "the gzip data ends too early (truncated file)"},
                      BadFile{"no_header.fa", "ACGT\n>a\nAC\n", false, "line 1 should be a header starting with \">\""},
                      BadFile{"binary.fa", std::string_view("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16), false,
                              "it holds binary data, not FASTA text"}),
    [](const ::testing::TestParamInfo<BadFile>& info) {
        const std::string name = info.param.name;
        return name.substr(0, name.find('.'));
    });

// A FIFO would block an open until a writer came; it must be refused at once by name.
TEST_F(CliFastaTest, FifoIsRefusedWithoutBlocking) {
    ASSERT_EQ(mkfifo(data_.Path("pipe.txt").c_str(), 0600), 0);
    const ProgramResult result = Cli("display " + Quoted(data_.Path("pipe.txt")));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "Cannot read the sequence file " + data_.Path("pipe.txt") + ": it is not a regular file\n");
}

}  // namespace
}  // namespace tessarin
