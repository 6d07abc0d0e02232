#include "grammar/grammar_complexity.h"

#include <gtest/gtest.h>

#include "grammar/grammar.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

class GrammarComplexityTest : public ::testing::Test {
  protected:
    testing::TempFolder folder_;
    testing::ScriptedHost host_;
    Session session_{host_, folder_.Folder()};

    void MakeCurrent(const std::string& name, const std::string& text) {
        session_.sequence().folder = folder_.Folder();
        session_.sequence().file_name = name;
        session_.sequence().text = text;
    }
};

// Catches a log written, or a result other than 0, for a sequence too short to compress; the
// start lines come before the length test.
TEST_F(GrammarComplexityTest, OneSymbolGivesZeroAndNoLog) {
    MakeCurrent("one.txt", "A");
    EXPECT_EQ(GrammarComplexity(session_, kNvogram, kVerifyFlag | kReportFlag), 0);
    EXPECT_EQ(host_.lines, (std::vector<std::string>{"Compute Grammar Complexity  - Press any key to cancel",
                                                     "Sequence " + folder_.Folder() + "one.txt"}));
    EXPECT_FALSE(folder_.Exists("one.log"));
}

// Catches start lines printed for an empty text.
TEST_F(GrammarComplexityTest, EmptyTextGivesZeroAndPrintsNothing) {
    MakeCurrent("empty.txt", "");
    EXPECT_EQ(GrammarComplexity(session_, kNvogram, kReportFlag), 0);
    EXPECT_TRUE(host_.lines.empty());
}

// Catches an earlier report overwritten, or numbers that nest.
TEST_F(GrammarComplexityTest, TakesTheFirstFreeLogName) {
    folder_.Write("dna.log", "first\r\n");
    folder_.Write("dna_1.log", "second\r\n");
    MakeCurrent("dna.b.txt", "ACGTACGT");
    GrammarComplexity(session_, kNvogram, kReportFlag);
    EXPECT_EQ(folder_.Read("dna.log"), "first\r\n");
    EXPECT_EQ(folder_.Read("dna_1.log"), "second\r\n");
    EXPECT_EQ(folder_.Read("dna_2.log").substr(0, 22), "TESSARIN Version 1.7\r\n");
}

// Catches a text compressed without becoming the current one (the distance measure needs its
// alphabet afterwards) and a report or log where none is wanted.
TEST_F(GrammarComplexityTest, OfTextMakesTheTextCurrentAndReportsNothing) {
    MakeCurrent("other.txt", "ACGT");
    EXPECT_EQ(GrammarComplexityOfText(session_, "xyxyxy"), 5);
    EXPECT_EQ(session_.sequence().text, "xyxyxy");
    EXPECT_EQ(session_.sequence().alphabet, (std::vector<unsigned char>{0, 'x', 'y'}));
    EXPECT_TRUE(host_.lines.empty());
    EXPECT_TRUE(host_.shown.empty());
    EXPECT_FALSE(folder_.Exists("other.log"));
}

}  // namespace
}  // namespace tessarin
