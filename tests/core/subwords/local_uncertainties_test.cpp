#include "subwords/local_uncertainties.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/subwords/subword_session.h"

namespace tessarin {
namespace {

using testing::SubwordSessionTest;

struct UncertaintyCase {
    const char* text;
    std::vector<std::string> results;  // the report after its header and summary
    const char* fault;
};

class LocalUncertaintiesTest : public SubwordSessionTest, public ::testing::WithParamInterface<UncertaintyCase> {};

TEST_P(LocalUncertaintiesTest, ReportsWordsWithMoreSuccessorsThanLetters) {
    const UncertaintyCase& c = GetParam();
    ChooseSequence("seq.txt", c.text);
    ASSERT_EQ(RunLocalUncertainties(session_), Outcome::kCompleted);
    EXPECT_EQ(ResultLines("seq_lst.log"), c.results) << c.fault;
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, LocalUncertaintiesTest,
    ::testing::Values(
        UncertaintyCase{"ABABA",
                        {"", "Local Conditional Uncertainties"},
                        "an occurrence at the end counted as a successor (A: 3 occurrences, 2 successors)"},
        UncertaintyCase{"ABABAB",
                        {"", "Local Conditional Uncertainties", "", "Subword Length l = 1", " 1. h(A) = 0"},
                        "K + 1 successors not reported, or K successors reported (B has 2)"},
        UncertaintyCase{"AAABABB",
                        {"", "Local Conditional Uncertainties", "", "Subword Length l = 1", " 1. h(A) = 1"},
                        "a word followed equally often by every letter not measured as 1"},
        UncertaintyCase{"AABBBA",
                        {"", "Local Conditional Uncertainties", "", "Subword Length l = 1", " 2. h(B) = .9182959"},
                        "a heading missing when the length's first word is not reported, or a wrong rank"},
        UncertaintyCase{"ACGT", {"", "Local Conditional Uncertainties"}, "a failure without repeated words"}),
    [](const ::testing::TestParamInfo<UncertaintyCase>& info) { return std::string(info.param.text); });

}  // namespace
}  // namespace tessarin
