#include "sequence/sequence_reading.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "sequence/regular_file.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_format.h"
#include "support/gzip_file.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

using testing::TempFolder;
using testing::WriteGzip;

std::string ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const SequenceFileError& error) {
        return error.what();
    }
    return "no error";
}

// Catches an ending matched in the middle of a name, ".gz" not peeled before the FASTA endings,
// case taken into account, and a name without a dot taken for its ending.
TEST(FormatOfNameTest, TellsFastaGzipAndPlainTextByTheEnding) {
    for (const char* name : {"genes.fa", "g.fasta", "g.fna", "g.ffn", "g.faa", "g.frn", "g.fas", "g.mpfa",
                             "genome.fna.gz", "G.FA", "g.Fasta.GZ", "a.b.fa"})
        EXPECT_EQ(FormatOfName(name), SequenceFormat::kFasta) << name;
    for (const char* name : {"dna.txt.gz", "x.gz", "fa.gz"})
        EXPECT_EQ(FormatOfName(name), SequenceFormat::kGzipText) << name;
    for (const char* name : {"dna.txt", "fa", "x.fa.txt", "x.fastaq", "x.gz.txt", "x.fa.gz.bak", ".gz"})
        EXPECT_EQ(FormatOfName(name),
                  name == std::string(".gz") ? SequenceFormat::kGzipText : SequenceFormat::kPlainText)
            << name;
}

// The same sequence as plain text, gzip text, FASTA and gzip FASTA reads as the same text;
// catches a FASTA header or line breaks taken as symbols and gzip text left compressed.
TEST(ReadSequenceTest, EveryFormOfOneSequenceGivesTheSameText) {
    TempFolder folder;
    const std::string text = "GATTACAgattaca NN";
    folder.Write("dna.txt", "GATTACA\r\ngattaca NN\r\n");
    WriteGzip(folder.Path("dna.txt.gz"), "GATTACA\ngattaca NN\n");
    folder.Write("dna.fa", ">dna a test\nGATTACA\ngattaca NN\n");
    WriteGzip(folder.Path("dna.fna.gz"), ">dna\r\nGATTACA\r\ngattaca NN\r\n");
    folder.Write("dna.seq", ">dna\nGATTACA\ngattaca NN\n");
    const SequenceReading plain;
    SequenceReading fasta;
    fasta.fasta = true;
    SequenceReading capitals;
    capitals.fold_to_capitals = true;
    EXPECT_EQ(ReadSequence(folder.Path("dna.txt"), plain).text, text);
    EXPECT_EQ(ReadSequence(folder.Path("dna.txt.gz"), plain).text, text);
    EXPECT_EQ(ReadSequence(folder.Path("dna.fa"), plain).text, text);
    EXPECT_EQ(ReadSequence(folder.Path("dna.fna.gz"), plain).text, text);
    EXPECT_EQ(ReadSequence(folder.Path("dna.fa"), plain).record, "dna");
    EXPECT_EQ(ReadSequence(folder.Path("dna.txt"), plain).record, "");
    // Other names are plain text unless FASTA is asked for.
    EXPECT_EQ(ReadSequence(folder.Path("dna.seq"), plain).text, ">dnaGATTACAgattaca NN");
    EXPECT_EQ(ReadSequence(folder.Path("dna.seq"), fasta).text, text);
    // Folding touches the letters a-z only.
    EXPECT_EQ(ReadSequence(folder.Path("dna.fa"), capitals).text, "GATTACAGATTACA NN");
    EXPECT_EQ(ReadSequence(folder.Path("dna.txt"), capitals).text, "GATTACAGATTACA NN");
}

// Catches a number taken before an ID that looks like one, numbers counted from 0, a missing
// record falling back to the first, and a duplicate ID picked silently.
TEST(PickRecordTest, PicksByIdThenByNumberAndRefusesUnknownAndTwiceUsedIds) {
    const std::vector<FastaRecord> records{{"rpoB", "A"}, {"2", "C"}, {"gyrA", "G"}, {"dup", "T"}, {"dup", "TT"}};
    const std::filesystem::path path = "/data/genes.fa";
    EXPECT_EQ(PickRecord(records, "", path), 0U);
    EXPECT_EQ(PickRecord(records, "gyrA", path), 2U);
    EXPECT_EQ(PickRecord(records, "2", path), 1U);  // the ID "2", which is also the second record
    EXPECT_EQ(PickRecord(records, "3", path), 2U);
    EXPECT_EQ(PickRecord(records, "5", path), 4U);
    EXPECT_EQ(ErrorOf([&] { PickRecord(records, "6", path); }),
              "Cannot read the sequence file /data/genes.fa: it has no record 6 (5 records)");
    EXPECT_EQ(ErrorOf([&] { PickRecord(records, "0", path); }),
              "Cannot read the sequence file /data/genes.fa: it has no record 0 (5 records)");
    EXPECT_EQ(ErrorOf([&] { PickRecord(records, "rpob", path); }),
              "Cannot read the sequence file /data/genes.fa: it has no record rpob (5 records)");
    EXPECT_EQ(ErrorOf([&] { PickRecord(records, "dup", path); }),
              "Cannot read the sequence file /data/genes.fa: the ID dup belongs to two records");
    EXPECT_EQ(ErrorOf([&] { RequireUniqueIds(records, path); }),
              "Cannot read the sequence file /data/genes.fa: the ID dup belongs to two records");
}

// A FIFO without a writer would block an open for ever; kernel files never end or change under
// the reader. All are refused by name before anything is opened.
TEST(RequireRegularFileTest, RefusesEverythingButARegularFileByName) {
    TempFolder folder;
    folder.Write("dna.txt", "ACGT");
    ASSERT_EQ(mkfifo(folder.Path("fifo").c_str(), 0600), 0);
    EXPECT_NO_THROW(RequireRegularFile(folder.Path("dna.txt")));
    const std::string prefix = "Cannot read the sequence file ";
    EXPECT_EQ(ErrorOf([&] { RequireRegularFile(folder.Path("fifo")); }),
              prefix + folder.Path("fifo") + ": it is not a regular file");
    EXPECT_EQ(ErrorOf([&] { ReadSequence(folder.Path("fifo"), {}); }),
              prefix + folder.Path("fifo") + ": it is not a regular file");
    EXPECT_EQ(ErrorOf([&] { ReadSequence(folder.Path("fifo.fa"), {}); }),
              prefix + folder.Path("fifo.fa") + ": there is no such file");
    EXPECT_EQ(ErrorOf([] { RequireRegularFile("/dev/null"); }), prefix + "/dev/null: it is not a regular file");
    EXPECT_EQ(ErrorOf([] { RequireRegularFile("/proc/self/status"); }),
              prefix + "/proc/self/status: it is not a regular file");
    EXPECT_EQ(ErrorOf([&] { RequireRegularFile(folder.Path("")); }), prefix + folder.Path("") + ": it is a folder");
}

}  // namespace
}  // namespace tessarin
