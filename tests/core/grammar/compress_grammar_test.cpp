#include "grammar/compress_grammar.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
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

// A random text with a copy of its start planted at its end, long enough that building its trie
// and replacing the first rules take several polls.
std::string LongSequence(int length) {
    std::string text;
    std::uint32_t state = 12345;
    for (int i = 0; i < length; ++i) {
        state = state * 1103515245U + 12345U;
        text += "ACGT"[(state >> 16) % 4];
    }
    return text + text.substr(0, 300);
}

// Catches a build of the first trie that never reports, fractions that go back under one caption
// or leave 0..1 (0 would restart the display, 1 end it), and captions without the working length.
TEST(CompressGrammarTest, ProgressMovesForwardThroughBuildAndPasses) {
    for (const auto& [method, length] :
         {std::pair{Method::kNvogram, 150000}, std::pair{Method::kLongestFirst, 60000}}) {
        std::vector<std::pair<std::string, float>> reports;
        std::size_t before_first_pass = 0;
        CompressOptions options;
        options.progress_label = "x";
        options.on_pass = [&](std::int64_t) {
            if (before_first_pass == 0) before_first_pass = reports.size();
        };
        Compress(LongSequence(length), method, options, [&](const std::string& caption, float fraction) {
            reports.emplace_back(caption, fraction);
            return false;
        });
        ASSERT_GE(before_first_pass, 3U);  // the opening report, the build's, the first search's
        ASSERT_EQ(reports.back(), (std::pair<std::string, float>{"", 1}));
        for (std::size_t i = 1; i + 1 < reports.size(); ++i) {
            EXPECT_EQ(reports[i].first.rfind("x: Find Words", 0), 0U) << i;
            EXPECT_GT(reports[i].second, 0) << i;
            EXPECT_LT(reports[i].second, 1) << i;
            if (reports[i].first == reports[i - 1].first) {
                EXPECT_GE(reports[i].second, reports[i - 1].second) << i;
            }
        }
        EXPECT_GT(reports[before_first_pass - 2].second, reports[1].second);  // the scan moved on
    }
}

// Catches a cancel during the build of the first trie or during a pass's replacements that is
// only seen at the end of the work, or that hands out a grammar.
TEST(CompressGrammarTest, CancelInsideTheBuildStopsAtOnce) {
    for (const Method method : {Method::kNvogram, Method::kMaximumGain}) {
        int calls = 0;
        const GrammarResult result = Compress(LongSequence(150000), method, {}, [&](const std::string&, float) {
            ++calls;
            return calls == 3;
        });
        EXPECT_TRUE(result.cancelled);
        EXPECT_TRUE(result.rules.empty());
        EXPECT_EQ(calls, 3);
    }
}

}  // namespace
}  // namespace tessarin
