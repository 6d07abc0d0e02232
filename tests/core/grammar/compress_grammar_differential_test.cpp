#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

#include "core/grammar/reference_compress_grammar.h"
#include "grammar/compress_grammar.h"
#include "sequence/alphabet.h"
#include "sequence/sequence_summary.h"
#include "support/scripted_host.h"

namespace tessarin {
namespace {

// Sequences per method; TESSARIN_GRAMMAR_RANDOM_COUNT raises it for a longer run.
int SequenceCount() {
    const char* count = std::getenv("TESSARIN_GRAMMAR_RANDOM_COUNT");
    return count != nullptr ? std::atoi(count) : 10000;
}

// Mostly short sequences, where ties, overlaps and reordered groups are frequent, and a few
// longer ones that reach several lengths and many passes.
std::string RandomSequence(std::mt19937& random) {
    const int letters = std::uniform_int_distribution<int>(1, 6)(random);
    const int longest = std::uniform_int_distribution<int>(0, 19)(random) == 0 ? 40 : 12;
    const int length = std::uniform_int_distribution<int>(1, longest)(random);
    std::uniform_int_distribution<int> letter(0, letters - 1);
    std::string text;
    for (int i = 0; i < length; ++i)
        text += static_cast<char>('A' + letter(random));
    return text;
}

std::string GrammarText(const Grammar& grammar) {
    std::string text;
    for (const WordRecord& rule : grammar) {
        for (const std::int32_t symbol : rule.symbols)
            text += std::to_string(symbol) + " ";
        text += "| ";
    }
    return text;
}

class CompressGrammarDifferentialTest : public ::testing::TestWithParam<int> {};

// Catches any departure of the production engine from the steps as written: the search order,
// the pruning and reordering, the rank arithmetic of the walk, the acceptance of each method,
// Shortest First's resumed search, NVOGRAM's fall-back and the replacement of occurrences.
TEST_P(CompressGrammarDifferentialTest, BuildsTheSameGrammarAsTheLiteralLoop) {
    const int method = GetParam();
    testing::ScriptedHost host;
    Session session(host, "/tmp");
    session.SetClock([] { return 0.0; });  // progress shown once: the clock is not what is tested
    std::mt19937 random(20240 + static_cast<unsigned>(method));
    const int count = SequenceCount();
    for (int i = 0; i < count; ++i) {
        const std::string text = RandomSequence(random);
        session.sequence().text = text;
        const int alphabet_size = SequenceSummary(session, text, false);
        const CodedSequence coded = EncodeSequence(session.sequence(), text);
        const Grammar expected = testing::ReferenceCompressGrammar(StartGrammar(coded), alphabet_size, method);
        Grammar grammar = StartGrammar(coded);
        const float complexity = CompressGrammar(session, grammar, method, kVerifyFlag);
        ASSERT_EQ(GrammarText(grammar), GrammarText(expected)) << "sequence " << text;
        ASSERT_EQ(complexity, static_cast<float>(GrammarSize(expected))) << "sequence " << text;
    }
    EXPECT_TRUE(host.messages.empty());
}

std::string MethodName(const ::testing::TestParamInfo<int>& info) {
    static const char* const kNames[] = {"Nvogram", "ShortestFirst", "LongestFirst", "MaximumGain"};
    return kNames[info.param];
}

INSTANTIATE_TEST_SUITE_P(Methods, CompressGrammarDifferentialTest,
                         ::testing::Values(kNvogram, kShortestFirst, kLongestFirst, kMaximumGain), MethodName);

}  // namespace
}  // namespace tessarin
