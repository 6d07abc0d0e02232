#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "core/grammar/reference_compress_grammar.h"
#include "grammar/compress_grammar.h"
#include "grammar/verify_grammar.h"
#include "sequence/alphabet.h"
#include "session/random_generator.h"

namespace tessarin {
namespace {

// Sequences per method; TESSARIN_GRAMMAR_RANDOM_COUNT raises it for a longer run.
int SequenceCount() {
    const char* count = std::getenv("TESSARIN_GRAMMAR_RANDOM_COUNT");
    return count != nullptr ? std::atoi(count) : 10000;
}

// Mostly short sequences, where ties, overlaps and reordered groups are frequent, and a few
// longer ones that reach several lengths and many passes.
std::string RandomSequence(RandomGenerator& random) {
    const int letters = random.Index(6);
    const int longest = random.Index(20) == 1 ? 40 : 12;
    const int length = random.Index(longest);
    std::string text;
    for (int i = 0; i < length; ++i)
        text += static_cast<char>('A' + random.Index(letters) - 1);
    return text;
}

std::string GrammarText(const std::vector<Rule>& rules) {
    std::string text;
    for (const Rule& rule : rules) {
        text += std::to_string(rule.code) + ":";
        for (const std::int32_t symbol : rule.symbols)
            text += " " + std::to_string(symbol);
        text += " | ";
    }
    return text;
}

class CompressGrammarDifferentialTest : public ::testing::TestWithParam<Method> {};

// Catches any departure of the engine from the reference: the search order, the dropped overlaps
// and reordered groups, the rank arithmetic of the walk, the acceptance of each method, Shortest
// First's resumed search, NVOGRAM's fall-back and the replacement of occurrences.
TEST_P(CompressGrammarDifferentialTest, BuildsTheSameGrammarAsTheReference) {
    const Method method = GetParam();
    RandomGenerator random(20240 + static_cast<unsigned>(method));
    const int count = SequenceCount();
    for (int i = 0; i < count; ++i) {
        const std::string text = RandomSequence(random);
        const Alphabet alphabet = BuildAlphabet(text);
        const CodedSequence coded = Encode(alphabet, text);
        const std::vector<Rule> expected = testing::ReferenceCompressGrammar(coded, alphabet.Size(), method);
        const GrammarResult result = CompressGrammar(coded, alphabet.Size(), method, CompressOptions{}, NoProgress);
        ASSERT_EQ(GrammarText(result.rules), GrammarText(expected)) << "sequence " << text;
        std::int64_t size = 0;
        for (const Rule& rule : expected)
            size += static_cast<std::int64_t>(rule.symbols.size());
        ASSERT_EQ(result.complexity, size) << "sequence " << text;
        ASSERT_EQ(result.pass_sizes.size() + 1, expected.size()) << "sequence " << text;
        ASSERT_TRUE(VerifyGrammar(result.rules, coded, alphabet.Size())) << "sequence " << text;
    }
}

std::string MethodName(const ::testing::TestParamInfo<Method>& info) {
    static const char* const kNames[] = {"Nvogram", "ShortestFirst", "LongestFirst", "MaximumGain"};
    return kNames[static_cast<int>(info.param)];
}

INSTANTIATE_TEST_SUITE_P(Methods, CompressGrammarDifferentialTest,
                         ::testing::Values(Method::kNvogram, Method::kShortestFirst, Method::kLongestFirst,
                                           Method::kMaximumGain),
                         MethodName);

}  // namespace
}  // namespace tessarin
