#include "subwords/block_entropies.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "session/progress.h"

namespace tessarin {
namespace {

// Letters A, B, ... as symbols 1, 2, ... at positions 1..n.
std::vector<std::int32_t> Coded(const std::string& letters) {
    std::vector<std::int32_t> coded{0};
    for (const char c : letters)
        coded.push_back(c - 'A' + 1);
    return coded;
}

// -sum (f/T) log_K (f/T) over every word of length n, singletons included, in double precision.
double BruteForceEntropy(const std::string& letters, int n, int alphabet_size) {
    std::map<std::string, int> counts;
    const int places = static_cast<int>(letters.size()) - n + 1;
    for (int p = 0; p < places; ++p)
        ++counts[letters.substr(p, n)];
    double entropy = 0;
    for (const auto& [word, f] : counts) {
        const double q = static_cast<double>(f) / places;
        entropy -= q * std::log(q);
    }
    return entropy / std::log(alphabet_size);
}

struct EntropyCase {
    int alphabet_size;
    int length;
    unsigned seed;
};

class BlockEntropiesTest : public ::testing::TestWithParam<EntropyCase> {};

// Catches a wrong number of places T, a group walk that mixes lengths, words counted twice or
// missed, and a table that stops before the longest repeated word.
TEST_P(BlockEntropiesTest, EqualsTheEntropyOfAllWordsOfEachLength) {
    const EntropyCase& c = GetParam();
    std::mt19937 random(c.seed);
    std::string letters;
    for (int i = 0; i < c.length; ++i)
        letters.push_back(static_cast<char>('A' + random() % c.alphabet_size));
    const std::vector<std::int32_t> coded = Coded(letters);
    EntropyTable table;
    const int nmax = ComputeBlockEntropies(coded, c.length - 1, std::log(c.alphabet_size), table, "random", NoProgress);
    ASSERT_EQ(table.size(), static_cast<std::size_t>(nmax) + 1);
    EXPECT_EQ(table[0], 0.0F);
    for (int n = 1; n <= nmax; ++n)
        EXPECT_NEAR(table[n], BruteForceEntropy(letters, n, c.alphabet_size), 2e-6) << "n = " << n;
    // Beyond nmax every word of the sequence is unique.
    EXPECT_NEAR(BruteForceEntropy(letters, nmax + 1, c.alphabet_size),
                std::log(c.length - nmax) / std::log(c.alphabet_size), 1e-12);
}

INSTANTIATE_TEST_SUITE_P(RandomSequences, BlockEntropiesTest,
                         ::testing::Values(EntropyCase{2, 60, 1}, EntropyCase{3, 120, 2}, EntropyCase{4, 200, 3},
                                           EntropyCase{20, 300, 4}));

// Catches a read past the list when no symbol repeats.
TEST(BlockEntropiesLimitTest, NoRepeatedSymbolGivesNoLength) {
    EntropyTable table;
    EXPECT_EQ(ComputeBlockEntropies(Coded("ABCD"), 3, std::log(4.0), table, "abcd", NoProgress), 0);
    EXPECT_EQ(table, EntropyTable{0.0F});
}

}  // namespace
}  // namespace tessarin
