#include "subwords/exceptional_words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/subwords/subword_session.h"

namespace tessarin {
namespace {

using testing::SubwordSessionTest;

class ExceptionalWordsTest : public SubwordSessionTest {
  protected:
    void SetSequence(const std::string& text) {
        CurrentSequence& sequence = session_.sequence();
        sequence.folder = folder_.Folder();
        sequence.file_name = "seq.txt";
        sequence.text = text;
    }
};

// Worked by hand for GATTACAGATTACA (N = 14, 6 A, 2 G; pairs GA and AT twice in 13):
// f(GAT) = 2/12, p = 2/14 x (2/13)/(2/14) x (2/13)/(6/14) = .05522683, and 3p = .1657 <= f = .1667.
// Catches a wrong Markov chain, a wrong factor or direction of the test, and words of lengths 1
// and 2 (A, T, GA, AT, ... all repeated) slipping into the list.
TEST_F(ExceptionalWordsTest, ListsWordsAtLeastThreeTimesMoreFrequentThanPredicted) {
    SetSequence("GATTACAGATTACA");
    ASSERT_TRUE(FindExceptionalWords(session_, 0, 3));
    EXPECT_EQ(
        ResultLines("seq_lst.log"),
        (std::vector<std::string>{"", "Exceptional Subword List", "", "Subword Length l = 3",
                                  "{GAT}\t f = .1666667\t p = .05522683\tChance p/f = .331361", "Positions: 1, 8,",
                                  "{TAC}\t f = .1666667\t p = .05522683\tChance p/f = .331361", "Positions: 4, 11,"}));
}

// Catches a maximum length below 1 handed on to the search, which then stops after length 2.
TEST_F(ExceptionalWordsTest, MaxLengthBelowOneMeansTheSequenceLength) {
    SetSequence("GATTACAGATTACA");
    ASSERT_TRUE(FindExceptionalWords(session_, 1, 14));
    ASSERT_TRUE(FindExceptionalWords(session_, 1, 0));
    ASSERT_TRUE(FindExceptionalWords(session_, 1, -3));
    const std::vector<std::string> full = ResultLines("seq_lst.log");
    EXPECT_EQ(full.back(), "{GATTACA}\t f = .25\t p = .006190241\tChance p/f = .02476097");
    EXPECT_EQ(ResultLines("seq_lst_1.log"), full);
    EXPECT_EQ(ResultLines("seq_lst_2.log"), full);
}

}  // namespace
}  // namespace tessarin
