#include "grammar/verify_grammar.h"

#include <gtest/gtest.h>

#include <vector>

namespace tessarin {
namespace {

struct VerifyCase {
    const char* fault;
    std::vector<Rule> rules;  // over the terminals 1 and 2
    bool expected;
};

class VerifyGrammarTest : public ::testing::TestWithParam<VerifyCase> {};

// The sequence 1 2 1 2 1 (index 0 unused, as in a CodedSequence).
TEST_P(VerifyGrammarTest, ExpandsTheStartRuleAndComparesEverySymbol) {
    const VerifyCase& c = GetParam();
    const std::vector<std::int32_t> coded{0, 1, 2, 1, 2, 1};
    EXPECT_EQ(VerifyGrammar(c.rules, coded, 2), c.expected) << c.fault;
}

INSTANTIATE_TEST_SUITE_P(
    Grammars, VerifyGrammarTest,
    ::testing::Values(VerifyCase{"a correct grammar refused", {{0, {3, 3, 1}}, {3, {1, 2}}}, true},
                      VerifyCase{"a wrong symbol accepted", {{0, {3, 3, 2}}, {3, {1, 2}}}, false},
                      VerifyCase{"a short expansion accepted", {{0, {3, 3}}, {3, {1, 2}}}, false},
                      VerifyCase{"a long expansion accepted", {{0, {3, 3, 3}}, {3, {1, 2}}}, false},
                      VerifyCase{"a code naming no rule not caught", {{0, {4, 3, 1}}, {3, {1, 2}}}, false},
                      VerifyCase{"a rule that contains itself expanded forever", {{0, {3}}, {3, {1, 3}}}, false},
                      VerifyCase{"an empty grammar accepted", {}, false}));

}  // namespace
}  // namespace tessarin
