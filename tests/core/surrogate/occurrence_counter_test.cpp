#include "surrogate/occurrence_counter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "session/random_generator.h"

namespace tessarin {
namespace {

// The count as written: every start position p = 1..L-m+1 where the word matches.
std::int32_t LiteralCount(const std::vector<std::int32_t>& word, const std::vector<std::int32_t>& coded) {
    const int length = static_cast<int>(coded.size()) - 1;
    const int m = static_cast<int>(word.size());
    std::int32_t count = 0;
    for (int p = 1; p <= length - m + 1; ++p) {
        bool match = true;
        for (int k = 0; k < m && match; ++k)
            match = coded[p + k] == word[k];
        count += match ? 1 : 0;
    }
    return count;
}

// Catches overlapping occurrences missed ("AAA" in "AAAAA" is 3), words of different lengths
// mixed up, and words longer than the sequence not counted as 0.
TEST(OccurrenceCounterTest, CountsEveryWordAsTheLiteralScanDoes) {
    RandomGenerator random(5);
    std::vector<std::int32_t> coded{0};
    for (int i = 0; i < 400; ++i)
        coded.push_back(random.Index(3));
    coded.insert(coded.end(), {1, 1, 1, 1, 1});
    std::vector<std::vector<std::int32_t>> words{{1, 1, 1}, std::vector<std::int32_t>(500, 2)};
    for (int i = 0; i < 60; ++i) {
        std::vector<std::int32_t> word(static_cast<std::size_t>(random.Index(5)));
        for (std::int32_t& symbol : word)
            symbol = random.Index(3);
        if (std::find(words.begin(), words.end(), word) == words.end()) words.push_back(word);
    }
    const std::vector<std::int32_t> counts = OccurrenceCounter(words).Count(coded);
    ASSERT_EQ(counts.size(), words.size());
    for (std::size_t w = 0; w < words.size(); ++w)
        EXPECT_EQ(counts[w], LiteralCount(words[w], coded)) << "word " << w;
    EXPECT_EQ(counts[1], 0);
}

}  // namespace
}  // namespace tessarin
