#include "grammar/compress_grammar.h"

#include <gtest/gtest.h>

#include "grammar/rule_text.h"
#include "sequence/alphabet.h"
#include "sequence/sequence_summary.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

class CompressGrammarTest : public ::testing::Test {
  protected:
    testing::TempFolder folder_;
    testing::ScriptedHost host_;
    Session session_{host_, folder_.Folder()};

    // Makes `text` the current sequence and compresses it; the rules come back as RuleLines.
    std::vector<std::string> Compress(const std::string& text, int method, int flags, float* complexity) {
        CurrentSequence& sequence = session_.sequence();
        sequence.text = text;
        sequence.file_name = "seq.txt";
        session_.log() = LogTarget{"seq.log", folder_.Folder()};
        SequenceSummary(session_, text, false);
        Grammar grammar = StartGrammar(EncodeSequence(sequence, text));
        *complexity = CompressGrammar(session_, grammar, method, flags);
        std::vector<std::string> rules;
        for (const WordRecord& rule : grammar)
            rules.push_back(RuleLine(rule, sequence));
        return rules;
    }
};

struct MethodCase {
    const char* fault;
    const char* text;
    int method;
    float complexity;
    std::vector<std::string> rules;
};

class CompressGrammarMethodTest : public CompressGrammarTest, public ::testing::WithParamInterface<MethodCase> {};

TEST_P(CompressGrammarMethodTest, BuildsTheGrammarOfTheMethod) {
    const MethodCase& c = GetParam();
    float complexity = -1;
    EXPECT_EQ(Compress(c.text, c.method, 0, &complexity), c.rules) << c.fault;
    EXPECT_EQ(complexity, c.complexity) << c.fault;
    EXPECT_TRUE(host_.lines.empty()) << "nothing is printed without the report flag";
}

INSTANTIATE_TEST_SUITE_P(
    Examples, CompressGrammarMethodTest,
    ::testing::Values(
        MethodCase{"a rule made without a repeat", "ACGT", kNvogram, 4, {"[0] -> {ACGT}"}},
        MethodCase{"a rule made without a repeat", "ACGT", kMaximumGain, 4, {"[0] -> {ACGT}"}},
        MethodCase{"the first code not K + 1, or K_G not the sum of all rules",
                   "ABABAB",
                   kNvogram,
                   5,
                   {"[0] -> {[3][3][3]}", "[3] -> {AB}"}},
        MethodCase{"the walk not led by the rank of the pruned AA", "AAABAB", kNvogram, 6, {"[0] -> {AAABAB}"}},
        MethodCase{"the walk skipping by group size instead of rank, so AAB is taken",
                   "AAAABAAB",
                   kLongestFirst,
                   7,
                   {"[0] -> {[3][3]B[3]B}", "[3] -> {AA}"}},
        MethodCase{"the walk skipping by group size instead of rank, so AAB is taken",
                   "AAAABAAB",
                   kMaximumGain,
                   7,
                   {"[0] -> {[3][3]B[3]B}", "[3] -> {AA}"}},
        MethodCase{"the resumed search extending dropped occurrences to AAB",
                   "AAABAAB",
                   kShortestFirst,
                   7,
                   {"[0] -> {AAABAAB}"}},
        MethodCase{
            "the fall-back refusing a pair that occurs twice", "ABAB", kNvogram, 4, {"[0] -> {[3][3]}", "[3] -> {AB}"}},
        MethodCase{"a pair occurring twice made a rule", "ABAB", kShortestFirst, 4, {"[0] -> {ABAB}"}},
        MethodCase{"a pair occurring twice made a rule", "ABAB", kLongestFirst, 4, {"[0] -> {ABAB}"}},
        MethodCase{"a pair occurring twice made a rule", "ABAB", kMaximumGain, 4, {"[0] -> {ABAB}"}},
        MethodCase{
            "a triple occurring twice refused", "ABCABC", kShortestFirst, 5, {"[0] -> {[4][4]}", "[4] -> {ABC}"}},
        MethodCase{"a triple occurring twice refused", "ABCABC", kLongestFirst, 5, {"[0] -> {[4][4]}", "[4] -> {ABC}"}},
        MethodCase{"a triple occurring twice refused", "ABCABC", kMaximumGain, 5, {"[0] -> {[4][4]}", "[4] -> {ABC}"}},
        MethodCase{"rules not searched as sequences, or occurrences inside rules not replaced",
                   "ABRACADABRA_ABRACADABRA",
                   kLongestFirst,
                   12,
                   {"[0] -> {[7]_[7]}", "[7] -> {[8]CAD[8]}", "[8] -> {ABRA}"}},
        MethodCase{"an unknown method making rules", "ABABAB", 7, 6, {"[0] -> {ABABAB}"}}));

// Catches pass lines missing, sent to the log, or numbered by passes rather than rules.
TEST_F(CompressGrammarTest, ReportPrintsEachPassWithRuleCountAndRunningComplexity) {
    float complexity = 0;
    Compress("ABRACADABRA_ABRACADABRA", kLongestFirst, kReportFlag, &complexity);
    EXPECT_EQ(host_.lines, (std::vector<std::string>{"Pass 1: Rule Length = 14", "Pass 2: Rule Length = 12"}));
    EXPECT_EQ(host_.shown, std::vector<std::string>{folder_.Path("seq.log")});
    EXPECT_NE(folder_.Read("seq.log").find("\r\nRule 2: [8] -> {ABRA}\r\n"), std::string::npos);
}

// Catches a result or report after a cancel, which must end the loop at once.
TEST_F(CompressGrammarTest, CancelReturnsZeroAndReportsNothing) {
    session_.RequestAbort();
    float complexity = -1;
    Compress("ABABAB", kNvogram, kVerifyFlag | kReportFlag, &complexity);
    EXPECT_EQ(complexity, 0);
    EXPECT_TRUE(host_.lines.empty());
    EXPECT_FALSE(folder_.Exists("seq.log"));
    EXPECT_TRUE(host_.shown.empty());
}

// Catches a verification against the start rule instead of the current text, and a failure that
// loses the value.
TEST_F(CompressGrammarTest, VerifiesAgainstTheCurrentTextAndStillReturnsTheValue) {
    SequenceSummary(session_, "ABABAB", false);
    session_.sequence().text = "ABABAA";
    Grammar grammar = StartGrammar(EncodeSequence(session_.sequence(), "ABABAB"));
    EXPECT_EQ(CompressGrammar(session_, grammar, kNvogram, kVerifyFlag), 5);
    EXPECT_EQ(host_.messages, std::vector<std::string>{"Error: Rules do not construct initial sequence"});
}

// Catches a per-pass check that stops a correct compression.
TEST_F(CompressGrammarTest, CheckingEachPassKeepsACorrectCompressionGoing) {
    float complexity = 0;
    Compress("ABRACADABRA_ABRACADABRA", kLongestFirst, kCheckEachPassFlag, &complexity);
    EXPECT_EQ(complexity, 12);
    EXPECT_TRUE(host_.messages.empty());
}

}  // namespace
}  // namespace tessarin
