#include "grammar/verify_grammar.h"

#include <gtest/gtest.h>

#include "support/grammar_rule.h"

#include "sequence/sequence_summary.h"
#include "support/scripted_host.h"

namespace tessarin {
namespace {

using testing::Rule;

struct VerifyCase {
    const char* fault;
    Grammar grammar;
    bool verified;
};

class VerifyGrammarTest : public ::testing::TestWithParam<VerifyCase> {
  protected:
    testing::ScriptedHost host_;
    Session session_{host_, "/tmp"};
};

// The current text is ABABAB (A = 1, B = 2, rules from code 3).
TEST_P(VerifyGrammarTest, ExpandsTheStartRuleAndComparesWithTheCurrentText) {
    session_.sequence().text = "ABABAB";
    SequenceSummary(session_, "ABABAB", false);
    EXPECT_EQ(VerifyGrammar(GetParam().grammar, session_.sequence(), session_.Progress()), GetParam().verified)
        << GetParam().fault;
    EXPECT_EQ(host_.captions.front(), "Verifying...: done 0%");
}

INSTANTIATE_TEST_SUITE_P(
    Grammars, VerifyGrammarTest,
    ::testing::Values(
        VerifyCase{"a correct grammar refused", {Rule({0, 3, 3, 3}), Rule({3, 1, 2})}, true},
        VerifyCase{"nested rules not expanded", {Rule({0, 4, 3}), Rule({3, 1, 2}), Rule({4, 3, 3})}, true},
        VerifyCase{
            "a later rule used inside an earlier one", {Rule({0, 3, 4}), Rule({3, 4, 4}), Rule({4, 1, 2})}, true},
        VerifyCase{"a wrong symbol accepted", {Rule({0, 3, 3, 3}), Rule({3, 2, 1})}, false},
        VerifyCase{"a shorter expansion accepted", {Rule({0, 3, 3}), Rule({3, 1, 2})}, false},
        VerifyCase{"a longer expansion accepted", {Rule({0, 3, 3, 3, 1}), Rule({3, 1, 2})}, false},
        VerifyCase{"a code without a rule followed", {Rule({0, 3, 3, 5}), Rule({3, 1, 2})}, false},
        VerifyCase{"a rule containing itself never ends", {Rule({0, 3}), Rule({3, 3, 1})}, false},
        VerifyCase{"the start code taken for a rule", {Rule({0, 0, 1, 2})}, false}));

}  // namespace
}  // namespace tessarin
