#include "grammar/rule_text.h"

#include <gtest/gtest.h>

#include "support/grammar_rule.h"

namespace tessarin {
namespace {

using testing::Rule;

CurrentSequence Acgt() {
    CurrentSequence sequence;
    sequence.alphabet = {0, 'A', 'C', 'G', 'T'};
    return sequence;
}

struct SymbolCase {
    std::int32_t code;
    const char* text;
};

class SymbolTextTest : public ::testing::TestWithParam<SymbolCase> {};

// Catches an off-by-one at either end of the terminals and a start code printed as a letter.
TEST_P(SymbolTextTest, TerminalsAsLettersEverythingElseInBrackets) {
    EXPECT_EQ(SymbolText(GetParam().code, Acgt()), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Codes, SymbolTextTest,
                         ::testing::Values(SymbolCase{1, "A"}, SymbolCase{4, "T"}, SymbolCase{5, "[5]"},
                                           SymbolCase{0, "[0]"}, SymbolCase{123, "[123]"}));

// Catches separators between symbols and a wrong left-hand side for the start rule.
TEST(RuleTextTest, RuleLineJoinsTheSymbolsAfterTheCode) {
    EXPECT_EQ(RuleText(Rule({5, 1, 2, 3}), Acgt()), "ACG");
    EXPECT_EQ(RuleLine(Rule({5, 1, 2, 3}), Acgt()), "[5] -> {ACG}");
    EXPECT_EQ(RuleLine(Rule({0, 5, 4, 5}), Acgt()), "[0] -> {[5]T[5]}");
}

}  // namespace
}  // namespace tessarin
