#include "grammar/compress_grammar.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "grammar/rule_text.h"
#include "sequence/alphabet.h"

namespace tessarin {
namespace {

GrammarResult Compress(const std::string& text, Method method, const CompressOptions& options = {},
                       const ProgressFn& progress = NoProgress) {
    const Alphabet alphabet = BuildAlphabet(text);
    return CompressGrammar(Encode(alphabet, text), alphabet.Size(), method, options, progress);
}

struct MethodCase {
    const char* fault;
    const char* text;
    Method method;
    std::int64_t complexity;
    std::vector<std::string> rules;
};

class CompressGrammarMethodTest : public ::testing::TestWithParam<MethodCase> {};

TEST_P(CompressGrammarMethodTest, BuildsTheGrammarOfTheMethod) {
    const MethodCase& c = GetParam();
    const GrammarResult result = Compress(c.text, c.method);
    std::vector<std::string> rules;
    for (const Rule& rule : result.rules)
        rules.push_back(RuleLine(rule, BuildAlphabet(c.text)));
    EXPECT_EQ(rules, c.rules) << c.fault;
    EXPECT_EQ(result.complexity, c.complexity) << c.fault;
    EXPECT_FALSE(result.cancelled);
}

INSTANTIATE_TEST_SUITE_P(
    Examples, CompressGrammarMethodTest,
    ::testing::Values(
        MethodCase{"a rule made without a repeat", "ACGT", Method::kMaximumGain, 4, {"[0] -> {ACGT}"}},
        MethodCase{"the first code not K + 1, or K_G not the sum of all rules",
                   "ABABAB",
                   Method::kNvogram,
                   5,
                   {"[0] -> {[3][3][3]}", "[3] -> {AB}"}},
        MethodCase{"the walk not led by the rank of the pruned AA", "AAABAB", Method::kNvogram, 6, {"[0] -> {AAABAB}"}},
        MethodCase{"the walk stepping by group size instead of rank, so AAB is taken",
                   "AAAABAAB",
                   Method::kMaximumGain,
                   7,
                   {"[0] -> {[3][3]B[3]B}", "[3] -> {AA}"}},
        MethodCase{"the resumed search extending dropped occurrences to AAB",
                   "AAABAAB",
                   Method::kShortestFirst,
                   7,
                   {"[0] -> {AAABAAB}"}},
        MethodCase{"the fall-back refusing a pair that occurs twice",
                   "ABAB",
                   Method::kNvogram,
                   4,
                   {"[0] -> {[3][3]}", "[3] -> {AB}"}},
        MethodCase{"a pair occurring twice made a rule", "ABAB", Method::kLongestFirst, 4, {"[0] -> {ABAB}"}},
        MethodCase{"a triple occurring twice refused",
                   "ABCABC",
                   Method::kShortestFirst,
                   5,
                   {"[0] -> {[4][4]}", "[4] -> {ABC}"}},
        MethodCase{"rules not searched as sequences, or occurrences inside rules not replaced",
                   "ABRACADABRA_ABRACADABRA",
                   Method::kLongestFirst,
                   12,
                   {"[0] -> {[7]_[7]}", "[7] -> {[8]CAD[8]}", "[8] -> {ABRA}"}}));

// Catches pass sizes missing a pass or not the running K_G, and a per-pass check that stops a
// correct compression.
TEST(CompressGrammarTest, RecordsKGAfterEachPass) {
    CompressOptions options;
    options.check_each_pass = true;
    const GrammarResult result = Compress("ABRACADABRA_ABRACADABRA", Method::kLongestFirst, options);
    EXPECT_EQ(result.pass_sizes, (std::vector<std::int64_t>{14, 12}));
    EXPECT_FALSE(result.check_failed);
}

// Catches a cancel that is lost, or a partial grammar handed out as a result.
TEST(CompressGrammarTest, CancelEndsTheRunWithoutRules) {
    for (int calls_before_cancel : {0, 1, 2}) {
        int calls = 0;
        const GrammarResult result =
            Compress("ABRACADABRA_ABRACADABRA", Method::kLongestFirst, {},
                     [&](const std::string&, float) { return calls++ == calls_before_cancel; });
        EXPECT_TRUE(result.cancelled) << calls_before_cancel;
        EXPECT_TRUE(result.rules.empty()) << calls_before_cancel;
    }
}

// Catches progress captions without the caller's label or the working length.
TEST(CompressGrammarTest, ProgressNamesTheLabelAndTheWorkingLength) {
    std::vector<std::string> captions;
    CompressOptions options;
    options.progress_label = "dna";
    Compress("ABABAB", Method::kShortestFirst, options, [&](const std::string& caption, float) {
        captions.push_back(caption);
        return false;
    });
    ASSERT_GE(captions.size(), 2U);
    EXPECT_EQ(captions.front(), "dna: Find Words len = 2");
    EXPECT_EQ(captions.back(), "");  // the end of the progress display
}

}  // namespace
}  // namespace tessarin
