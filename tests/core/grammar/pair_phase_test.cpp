#include "grammar/pair_phase.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <vector>

#include "grammar/choose_word.h"
#include "grammar/word_list_view.h"
#include "session/random_generator.h"

namespace tessarin {
namespace {

struct Passes {
    std::vector<std::int32_t> kept;  // the kept count of each pass's pair
    std::vector<Rule> rules;
};

// The pair passes as the word list at length 2 takes them: the place its last word's rank points
// to, while the pair there is kept more than twice.
Passes ListPasses(const std::vector<std::int32_t>& symbols, std::int32_t alphabet_size) {
    const Rule start{0, symbols};
    WordListView list(std::span<const Rule>(&start, 1), 2);
    Passes passes;
    for (std::int32_t code = alphabet_size;;) {
        list.Search(2);
        const int place = LastGroupStart(list);
        const WordListView::Entry word = list.At(place);
        if (word.length != 2 || word.count <= 2) break;
        passes.kept.push_back(word.count);
        list.AddRule(place, ++code);
    }
    passes.rules = list.Rules();
    return passes;
}

Passes EnginePasses(const std::vector<std::int32_t>& symbols, std::int32_t alphabet_size) {
    PairPhase phase(symbols);
    Passes passes;
    for (std::int32_t code = alphabet_size;;) {
        const std::int32_t kept = phase.Choose();
        if (kept == 0) break;
        passes.kept.push_back(kept);
        phase.AddRule(++code);
    }
    passes.rules = phase.Rules();
    return passes;
}

void ExpectSamePasses(const std::vector<std::int32_t>& symbols, std::int32_t alphabet_size) {
    const Passes list = ListPasses(symbols, alphabet_size);
    const Passes engine = EnginePasses(symbols, alphabet_size);
    ASSERT_EQ(engine.kept, list.kept);
    ASSERT_EQ(engine.rules.size(), list.rules.size());
    for (std::size_t r = 0; r < list.rules.size(); ++r) {
        EXPECT_EQ(engine.rules[r].code, list.rules[r].code) << "rule " << r;
        EXPECT_EQ(engine.rules[r].symbols, list.rules[r].symbols) << "rule " << r;
    }
}

std::vector<std::int32_t> RandomSymbols(std::uint64_t seed, int length, int letters) {
    RandomGenerator random(seed);
    std::vector<std::int32_t> symbols(static_cast<std::size_t>(length));
    for (std::int32_t& symbol : symbols)
        symbol = random.Index(letters);
    return symbols;
}

// Longer inputs than the comparison with the reference can afford, where the buckets, the heap of
// the highest one and the slot gaps see thousands of passes.
TEST(PairPhaseTest, TakesThePairsOfTheWordListOnLongRandomSequences) {
    ExpectSamePasses(RandomSymbols(11, 20000, 2), 2);
    ExpectSamePasses(RandomSymbols(12, 20000, 300), 300);
}

// Runs of one symbol keep fewer occurrences than they count, so such pairs move down the list
// and, when one comes last, the pass looks far from the start of the list.
TEST(PairPhaseTest, TakesThePairsOfTheWordListAmongLongRuns) {
    RandomGenerator random(13);
    std::vector<std::int32_t> symbols;
    while (symbols.size() < 20000) {
        const std::int32_t symbol = random.Index(5);
        symbols.insert(symbols.end(), static_cast<std::size_t>(random.Index(random.Index(4) == 1 ? 40 : 4)), symbol);
    }
    ExpectSamePasses(symbols, 5);
}

}  // namespace
}  // namespace tessarin
