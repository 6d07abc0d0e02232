#include "subwords/repeated_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/subwords/subword_session.h"

namespace tessarin {
namespace {

using testing::SubwordSessionTest;

// Catches a spread that fails on a rounding residue below zero.
TEST(SafeSqrtTest, SquareRootAndZeroForNegatives) {
    EXPECT_EQ(SafeSqrt(6.25), 2.5);
    EXPECT_EQ(SafeSqrt(0), 0);
    EXPECT_EQ(SafeSqrt(-1e-9), 0);
}

class RepeatedWordsTest : public SubwordSessionTest {};

// B at 1, 5000 and 9001: distances 4999 and 4001. In single precision the sum of squares
// 40998002 is stored as 40998000, so the spread reads 498.999 where exact arithmetic gives 499.
// Catches distance sums kept in double precision.
TEST_F(RepeatedWordsTest, DistanceSumsAreSinglePrecision) {
    std::string text(9001, 'A');
    text[0] = text[4999] = text[9000] = 'B';
    ChooseSequence("far.txt", text);
    host_.box_answers.push_back("1");
    ASSERT_EQ(RunRepeatedWords(session_, 0), Outcome::kCompleted);
    const std::vector<std::string> lines = ReportLines("far_lst.log");
    const auto b = std::find(lines.begin(), lines.end(), " 2. f(B) = 3");
    ASSERT_EQ(std::distance(b, lines.end()), 3);
    EXPECT_EQ(b[1], "Positions: 1, 5000, 9001,");
    EXPECT_EQ(b[2], "Average Distance = 4500, \tr.m.s. = 498.999");
}

// Catches a heading or a line written for a list without words.
TEST_F(RepeatedWordsTest, NoRepeatedSymbolGivesOnlyTheTitle) {
    ChooseSequence("acgt.txt", "ACGT");
    ASSERT_EQ(RunRepeatedWords(session_, 0), Outcome::kCompleted);
    EXPECT_EQ(ResultLines("acgt_lst.log"), (std::vector<std::string>{"", "Subword Frequencies"}));
}

// Catches a maximum length of 0 handed on to the search, which then stops after length 2.
TEST_F(RepeatedWordsTest, MaxLengthZeroMeansTheSequenceLength) {
    CurrentSequence& sequence = session_.sequence();
    sequence.folder = folder_.Folder();
    sequence.file_name = "aaaa.txt";
    sequence.text = "AAAA";
    ASSERT_TRUE(FindRepeatedWords(session_, 1, 0));
    EXPECT_EQ(ResultLines("aaaa_lst.log"),
              (std::vector<std::string>{"", "Subword Frequencies", "", "Subword Length l = 1", " 1. f(A) = 4", "",
                                        "Subword Length l = 2", " 1. f(AA) = 3", "", "Subword Length l = 3",
                                        " 1. f(AAA) = 2"}));
}

}  // namespace
}  // namespace tessarin
