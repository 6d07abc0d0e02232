#include "surrogate/surrogate_shuffler.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "sequence/alphabet.h"

namespace tessarin {
namespace {

// Counts of every word of `length` in a coded sequence at positions 1..L.
std::map<std::vector<std::int32_t>, int> WordCounts(const std::vector<std::int32_t>& coded, int length) {
    std::map<std::vector<std::int32_t>, int> counts;
    for (std::size_t p = 1; p + length <= coded.size(); ++p)
        ++counts[std::vector<std::int32_t>(coded.begin() + static_cast<long>(p),
                                           coded.begin() + static_cast<long>(p) + length)];
    return counts;
}

std::string RandomText(const std::string& letters, int length, std::uint64_t seed) {
    RandomGenerator random(seed);
    std::string text;
    for (int i = 0; i < length; ++i)
        text.push_back(letters[random.Index(static_cast<int>(letters.size())) - 1]);
    return text;
}

const ShuffleCallbacks kNoQuestions{[](const std::string&) { return false; }, [](const std::string&) { return true; }};

struct Drawn {
    std::vector<std::int32_t> original;
    std::vector<SurrogateDraw> draws;
};

Drawn DrawFrom(const std::string& text, Preserve preserve, bool uniform, int count, std::uint64_t seed = 1) {
    const Alphabet alphabet = BuildAlphabet(text);
    Drawn drawn{Encode(alphabet, text), {}};
    SurrogateShuffler shuffler(drawn.original, alphabet.Size(), preserve, uniform);
    RandomGenerator random(seed);
    for (int i = 0; i < count; ++i)
        drawn.draws.push_back(shuffler.Next(random, kNoQuestions));
    return drawn;
}

using Case = std::tuple<std::string, Preserve, bool>;

class ShuffleInvariantTest : public ::testing::TestWithParam<Case> {};

// Every surrogate keeps the counts of its level and, for pairs and triples, its ends; and the
// shuffle does move something (a shuffle that returned the original would pass the rest).
TEST_P(ShuffleInvariantTest, SurrogatesKeepTheCountsAndEndsOfTheirLevel) {
    const auto& [letters, preserve, uniform] = GetParam();
    const Drawn drawn = DrawFrom(RandomText(letters, 4000, 17), preserve, uniform, 12);
    const int kept = preserve == Preserve::kTriples ? 3 : preserve == Preserve::kPairs ? 2 : 1;
    const std::size_t length = drawn.original.size();
    bool moved = false;
    for (const SurrogateDraw& draw : drawn.draws) {
        ASSERT_EQ(draw.permute, PermuteOutcome::kFound);
        ASSERT_EQ(draw.walk, WalkOutcome::kComplete);
        ASSERT_TRUE(draw.pairs_verified);
        ASSERT_EQ(draw.sequence.size(), length);
        for (int l = 1; l <= kept; ++l)
            ASSERT_EQ(WordCounts(draw.sequence, l), WordCounts(drawn.original, l)) << "word length " << l;
        for (int end = 1; end < kept; ++end) {
            EXPECT_EQ(draw.sequence[end], drawn.original[end]);
            EXPECT_EQ(draw.sequence[length - end], drawn.original[length - end]);
        }
        moved = moved || draw.sequence != drawn.original;
    }
    EXPECT_TRUE(moved);
}

INSTANTIATE_TEST_SUITE_P(Inputs, ShuffleInvariantTest,
                         ::testing::Combine(::testing::Values("ACGT", "GADPSCNEKVQTMLIRHFYW", "01"),
                                            ::testing::Values(Preserve::kSymbols, Preserve::kPairs, Preserve::kTriples),
                                            ::testing::Bool()));

// Successor lists of every symbol but the first, in order of use: the default shuffle only
// reorders the first symbol's list.
std::map<int, std::vector<int>> SuccessorsOfLaterSymbols(const std::vector<std::int32_t>& coded) {
    std::map<int, std::vector<int>> successors;
    for (std::size_t p = 1; p + 1 < coded.size(); ++p) {
        if (coded[p] != 1) successors[coded[p]].push_back(coded[p + 1]);
    }
    return successors;
}

TEST(PairShuffleTest, OnlyTheFirstSymbolsSuccessorsChangeOrder) {
    const Drawn drawn = DrawFrom("ACAGTTACGATCAGGATTACA", Preserve::kPairs, false, 20);
    std::set<std::vector<std::int32_t>> seen;
    for (const SurrogateDraw& draw : drawn.draws) {
        EXPECT_EQ(SuccessorsOfLaterSymbols(draw.sequence), SuccessorsOfLaterSymbols(drawn.original));
        seen.insert(draw.sequence);
    }
    EXPECT_GT(seen.size(), 1U);  // the exchanges in the first list do take effect
}

TEST(PairShuffleTest, SurrogatesEqualTheOriginalWhenTheFirstSymbolHasOneKindOfSuccessor) {
    // A is always followed by C (many edges), or has exactly one edge, which swaps with itself.
    for (const std::string text : {"CACGACTACGGAC", "GTACGTTG"}) {
        const Drawn drawn = DrawFrom(text, Preserve::kPairs, false, 5);
        for (const SurrogateDraw& draw : drawn.draws)
            EXPECT_EQ(draw.sequence, drawn.original) << text;
    }
}

// A symbol-level shuffle of two symbols exchanges them at every swap: after L = 2 swaps "AB" is
// back; a one-symbol sequence is left alone.
TEST(SymbolShuffleTest, TwoSymbolsComeBackAfterTwoSwapsAndOneStaysPut) {
    for (const std::string text : {"AB", "A"}) {
        const Drawn drawn = DrawFrom(text, Preserve::kSymbols, false, 3);
        for (const SurrogateDraw& draw : drawn.draws)
            EXPECT_EQ(draw.sequence, drawn.original) << text;
    }
}

// The exchanges all happen in the first vertex's list, so a first vertex without edges is refused
// instead of exchanging in an empty list; the uniform shuffle needs no such vertex.
TEST(ShufflerRefusalTest, AFirstVertexThatOnlyEndsTheSequenceIsRefusedUnlessUniform) {
    for (const auto& [text, preserve] : {std::pair<std::string, Preserve>{"BCBCA", Preserve::kPairs},
                                         {"BCBCAA", Preserve::kTriples},
                                         {"B", Preserve::kTriples}}) {
        const Alphabet alphabet = BuildAlphabet(text);
        EXPECT_THROW(SurrogateShuffler(Encode(alphabet, text), alphabet.Size(), preserve, false), SurrogateRefusal)
            << text;
    }
    const Drawn drawn = DrawFrom("BCBCA", Preserve::kPairs, true, 3);
    for (const SurrogateDraw& draw : drawn.draws)
        EXPECT_EQ(WordCounts(draw.sequence, 2), WordCounts(drawn.original, 2));
}

}  // namespace
}  // namespace tessarin
