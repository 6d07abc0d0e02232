#include "surrogate/surrogate_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "sequence/sequence_file_writer.h"
#include "surrogate_session.h"

namespace tessarin {
namespace {

class SurrogateFilesTest : public testing::SurrogateSessionTest {};

struct LayoutCase {
    SequenceLayout layout;
    int length;
    std::vector<int> line_lengths;
};

class SequenceLayoutTest : public SurrogateFilesTest, public ::testing::WithParamInterface<LayoutCase> {};

TEST_P(SequenceLayoutTest, LinesEndInCrLfAndHoldTheirShareOfSymbols) {
    const std::string text = std::string(static_cast<std::size_t>(GetParam().length), 'A');
    WriteSequenceFile(folder_.Path("out.txt"), text, GetParam().layout);
    std::string expected;
    for (const int length : GetParam().line_lengths)
        expected += std::string(static_cast<std::size_t>(length), 'A') + "\r\n";
    EXPECT_EQ(folder_.Read("out.txt"), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, SequenceLayoutTest,
    ::testing::Values(LayoutCase{SequenceLayout::kLinesOf64, 130, {64, 64, 2}},  // the rest on a last line
                      LayoutCase{SequenceLayout::kLinesOf64, 64, {64}},          // no empty line after a full one
                      LayoutCase{SequenceLayout::kLinesOf64, 0, {}},             // an empty sequence writes nothing
                      LayoutCase{SequenceLayout::kOneLine, 130, {130}},          // one line, however long
                      LayoutCase{SequenceLayout::kSymbolPerLine, 3, {1, 1, 1}}));

// The files take the selected file's name up to its first "." (all of it when it has none), are
// written in lines of 64 symbols and replace earlier files of those names; the log holds only the
// header. Each file keeps the original's symbol counts.
TEST_F(SurrogateFilesTest, WritesNumberedFilesBesideTheSequenceWithAHeaderOnlyLog) {
    const std::string text = testing::ReadTestData("dna.txt");
    folder_.Write("dna.txt", text);
    std::string letters;
    for (const std::string& line : Lines("dna.txt"))
        letters += line;
    std::sort(letters.begin(), letters.end());
    for (const std::string name : {"seq.b.dat", "seq"}) {
        folder_.Write(name, text);
        folder_.Write("seq_2.txt", "stale");
        SurrogateParams params = ParamsFor("dna.txt", Preserve::kSymbols, 3);
        params.input = folder_.Path(name);
        ASSERT_EQ(RunMakeSurrogateFiles(session_, params), Outcome::kCompleted) << name;
        EXPECT_EQ(Lines("seq_files.log"),
                  (std::vector<std::string>{"TESSARIN Version 1.7", "Surrogate File Set of " + folder_.Path(name),
                                            "Surrogates: 3", "Preserve: Only Symbols", ""}));
        EXPECT_EQ(host_.lines.front(), "Compute Surrogate Files  - Press any key to cancel");
        EXPECT_EQ(host_.lines.back().rfind("Time needed =", 0), 0U);
        for (const std::string file : {"seq_1.txt", "seq_2.txt", "seq_3.txt"}) {
            const std::vector<std::string> lines = Lines(file);
            ASSERT_EQ(lines.size(), 5U) << file;  // 284 symbols: four lines of 64 and one of 28
            std::string joined;
            for (const std::string& line : lines)
                joined += line;
            std::sort(joined.begin(), joined.end());
            EXPECT_EQ(joined, letters) << file;
        }
        EXPECT_FALSE(folder_.Exists("seq_4.txt"));
        std::filesystem::remove(folder_.Path("seq_files.log"));
    }
}

// A run stopped by a refusal writes no file; the message names the remedy.
TEST_F(SurrogateFilesTest, ATriplesLevelWhoseFirstPairOnlyEndsTheSequenceWritesNoFile) {
    folder_.Write("end.txt", "BCBCAA");
    SurrogateParams params = ParamsFor("dna.txt", Preserve::kTriples, 2);
    params.input = folder_.Path("end.txt");
    EXPECT_EQ(RunMakeSurrogateFiles(session_, params), Outcome::kRefused);
    EXPECT_EQ(Lines("end_files.log").size(), 5U);
    EXPECT_FALSE(folder_.Exists("end_1.txt"));
    ASSERT_EQ(host_.messages.size(), 1U);
    EXPECT_NE(host_.messages[0].find("\"Only Symbols\""), std::string::npos);
}

}  // namespace
}  // namespace tessarin
