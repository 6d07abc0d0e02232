#include "grammar/add_rule.h"

#include <gtest/gtest.h>

#include "support/grammar_rule.h"

namespace tessarin {
namespace {

using testing::Rule;

struct ReplaceCase {
    const char* fault;
    int position;
    int length;
    std::vector<std::int32_t> replacement;
    std::vector<std::int32_t> expected;
};

class ReplaceSubwordTest : public ::testing::TestWithParam<ReplaceCase> {};

TEST_P(ReplaceSubwordTest, SplicesTheReplacementKeepingTheLeftHandSide) {
    const ReplaceCase& c = GetParam();
    EXPECT_EQ(ReplaceSubword(Rule({9, 1, 2, 3, 4}), c.position, c.length, c.replacement).symbols, c.expected)
        << c.fault;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ReplaceSubwordTest,
    ::testing::Values(ReplaceCase{"middle: symbols after the word lost or doubled", 2, 2, {7}, {9, 1, 7, 4}},
                      ReplaceCase{"start: the left-hand side overwritten", 1, 2, {7}, {9, 7, 3, 4}},
                      ReplaceCase{"end: reading past the rule", 3, 2, {7}, {9, 1, 2, 7}},
                      ReplaceCase{"longer replacement: truncated", 2, 1, {7, 8}, {9, 1, 7, 8, 3, 4}},
                      ReplaceCase{"length 0 must give an empty record", 2, 0, {7}, {}}));

// Catches a new rule that keeps its occurrences or lacks its code, occurrences applied to the
// wrong rule, and shifted positions when one rule holds several occurrences.
TEST(AddRuleTest, AppendsTheRuleAndReplacesEveryOccurrenceInItsOwnRule) {
    Grammar grammar{Rule({0, 1, 2, 3, 1, 2, 1, 2}), Rule({4, 3, 1, 2})};
    WordRecord word = Rule({0, 1, 2});
    word.positions = {{4, 1}, {1, 0}, {4, 0}, {6, 0}, {2, 1}};
    AddRule(grammar, word, 5);
    ASSERT_EQ(grammar.size(), 3U);
    EXPECT_EQ(grammar[0].symbols, (std::vector<std::int32_t>{0, 5, 3, 5, 5}));
    EXPECT_EQ(grammar[1].symbols, (std::vector<std::int32_t>{4, 3, 5}));
    EXPECT_EQ(grammar[2].symbols, (std::vector<std::int32_t>{5, 1, 2}));
    EXPECT_TRUE(grammar[2].positions.empty());
}

}  // namespace
}  // namespace tessarin
