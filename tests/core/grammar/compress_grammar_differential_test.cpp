#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

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

std::string RandomLetters(RandomGenerator& random, int length, int letters) {
    std::string text;
    for (int i = 0; i < length; ++i)
        text += static_cast<char>('A' + random.Index(letters) - 1);
    return text;
}

// Three fifths stretches of 20 to 200 random symbols, a quarter tandem repeats (2 to 8 copies of a
// unit of up to 20 symbols) and the rest copies of 40 to 200 symbols of the text so far.
std::string RepeatRichSequence(RandomGenerator& random, std::size_t length) {
    std::string text = "A";
    while (text.size() < length) {
        const int kind = random.Index(20);
        if (kind <= 12) {
            text += RandomLetters(random, 19 + random.Index(181), 4);
        } else if (kind <= 17) {
            const std::string unit = RandomLetters(random, random.Index(20), 4);
            for (int copies = 1 + random.Index(7); copies > 0; --copies)
                text += unit;
        } else {
            const auto from = static_cast<std::size_t>(random.Index(static_cast<int>(text.size())) - 1);
            text += text.substr(from, static_cast<std::size_t>(39 + random.Index(161)));
        }
    }
    return text.substr(0, length);
}

// Inputs whose longest repeats are far longer than a random sequence's: copies of hundreds of
// symbols, of a thousand and of five thousand planted in random text (exact, or with one symbol
// changed), long runs of one symbol, runs of many lengths, a long period-two stretch and a tandem
// repeat of a long period, alone and inside random text;
// and plain random text, alone and with a copy that a few passes make the best.
std::vector<std::string> LongRepeatSequences(Method method) {
    RandomGenerator random(777);
    std::vector<std::string> texts;
    const std::string base = RandomLetters(random, 800, 4);
    texts.push_back(base + base.substr(100, 450));
    const std::string longer = RandomLetters(random, 1200, 4);
    texts.push_back(longer + longer.substr(100, 1000));
    std::string changed = base.substr(0, 300);
    changed[150] = changed[150] == 'A' ? 'C' : 'A';
    texts.push_back(base.substr(0, 300) + RandomLetters(random, 200, 4) + changed + base.substr(0, 300));
    texts.push_back(std::string(700, 'A'));
    texts.push_back(RandomLetters(random, 300, 3) + std::string(450, 'C') + RandomLetters(random, 200, 3) +
                    std::string(200, 'C'));
    std::string period_two;
    for (int i = 0; i < 300; ++i)
        period_two += "GT";
    texts.push_back(RandomLetters(random, 200, 4) + period_two + "A" + period_two.substr(0, 401));
    // Runs of every length up to 80 side by side: runs of one symbol are attached and cut as one,
    // and a shorter run meets the chain a longer one left.
    std::string runs;
    while (runs.size() < 2000)
        runs += std::string(static_cast<std::size_t>(random.Index(80)), static_cast<char>('A' + random.Index(3) - 1));
    texts.push_back(runs);
    // Plain random text long enough for groups of thousands of words tied on their counts and
    // their prefixes' counts, whose order is copied out of the trie and kept from pass to pass.
    texts.push_back(RandomLetters(random, 2500, 4));
    texts.push_back(RandomLetters(random, 2500, 2));
    // A tandem repeat of a 40-symbol period among them: each group it reaches holds dozens of
    // words that overlap themselves, set apart from the tied words by dropping the overlaps.
    const std::string period = RandomLetters(random, 40, 4);
    texts.push_back(RandomLetters(random, 1500, 4) + period + period + period + period.substr(0, 25) +
                    RandomLetters(random, 1500, 4));
    // Pairs that gain more than a copy of 150 symbols present three times at first, and less
    // after a few passes: Maximum Gain looks at the short words only until then. A run of 20
    // symbols, whose words overlap themselves, lengthens the short ones.
    const std::string pairs_first = RandomLetters(random, 6000, 4);
    const std::string copy = pairs_first.substr(1000, 150);
    if (method == Method::kMaximumGain)
        texts.push_back(pairs_first.substr(0, 3000) + copy + pairs_first.substr(3000) + copy + std::string(20, 'A'));
    // A copy of 5,000 symbols only where pair passes come first: the literal reference lists every
    // repeated word with its places, which for such a copy under Longest First or Maximum Gain is
    // more memory than a machine has.
    if (method == Method::kNvogram || method == Method::kShortestFirst) {
        const std::string longest = RandomLetters(random, 6000, 4);
        texts.push_back(longest + longest.substr(500, 5000));
    }
    // Dozens of stretches present twice, whose words tie on their counts far up their prefixes,
    // and a tandem repeat whose words, overlapping themselves, move within their groups: the walk
    // lands inside groups of hundreds of such tied words and compares them by their tops.
    std::string twice = RandomLetters(random, 3000, 4);
    const std::string tandem = RandomLetters(random, 7, 4);
    for (int k = 0; k < 10; ++k)
        twice.insert(1500, tandem);
    for (int k = 0; k < 30; ++k)
        twice +=
            twice.substr(static_cast<std::size_t>(random.Index(2800)), 40 + static_cast<std::size_t>(random.Index(40)));
    texts.push_back(twice);
    // Stretches of random text, short tandem repeats and copies of earlier stretches, as DNA has
    // them: the words tied with a moved word keep their place against it from pass to pass until
    // a replacement changes the count of a prefix past the copied ones. These seeds give sequences
    // on which each way of keeping such a comparison too long builds another grammar.
    for (const auto& [seed, count] : {std::pair{15U, 2}, std::pair{16U, 4}}) {
        RandomGenerator rich(seed);
        for (int k = 0; k < count; ++k)
            texts.push_back(RepeatRichSequence(rich, 5000));
    }
    // A tandem repeat of a 200-symbol period, longer than a border a node notes: its longest word
    // that overlaps itself is longer than the short words may be, so the trie holds every length,
    // and the prefixes of a word whose border is worked out learn theirs from it.
    const std::string long_period = RandomLetters(random, 200, 4);
    texts.push_back(RandomLetters(random, 300, 4) + long_period + long_period + long_period.substr(0, 80) +
                    RandomLetters(random, 300, 4));
    return texts;
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

// The literal reference lists every repeated word of a long repeat with its places, which under
// a sanitizer takes minutes per input where the engine takes a fraction of a second.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kReferenceOnLongRepeats = false;
#else
constexpr bool kReferenceOnLongRepeats = true;
#endif

// Catches departures that only long repeats bring out: deep words, long runs whose occurrences
// overlap and are dropped, rules nested many times over. Under a sanitizer the engine runs on them
// for its memory errors and races alone, its grammar expanded and compared with the input.
TEST_P(CompressGrammarDifferentialTest, BuildsTheSameGrammarOnLongRepeats) {
    const Method method = GetParam();
    for (const std::string& text : LongRepeatSequences(method)) {
        const Alphabet alphabet = BuildAlphabet(text);
        const CodedSequence coded = Encode(alphabet, text);
        const GrammarResult result = CompressGrammar(coded, alphabet.Size(), method, CompressOptions{}, NoProgress);
        ASSERT_TRUE(VerifyGrammar(result.rules, coded, alphabet.Size()));
        if (!kReferenceOnLongRepeats) continue;
        const std::vector<Rule> expected = testing::ReferenceCompressGrammar(coded, alphabet.Size(), method);
        ASSERT_EQ(GrammarText(result.rules), GrammarText(expected)) << "sequence of length " << text.size();
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
