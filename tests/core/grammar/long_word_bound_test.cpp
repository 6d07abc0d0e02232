#include "grammar/long_word_bound.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <vector>

#include "session/random_generator.h"

namespace tessarin {
namespace {

// Every word of the text with its starts, the literal way.
std::map<std::vector<std::int32_t>, std::vector<int>> AllWords(const std::vector<std::int32_t>& text) {
    std::map<std::vector<std::int32_t>, std::vector<int>> words;
    for (std::size_t start = 0; start < text.size(); ++start) {
        for (std::size_t end = start + 1; end <= text.size(); ++end)
            words[std::vector<std::int32_t>(text.begin() + start, text.begin() + end)].push_back(
                static_cast<int>(start));
    }
    return words;
}

// Random texts over three letters, some with a planted copy or a run, against a count of every word.
TEST(LongWordBoundTest, MatchesTheWordsOfTheTextCountedOneByOne) {
    RandomGenerator random(2027);
    const ProgressFn none = NoProgress;
    for (int round = 0; round < 300; ++round) {
        std::vector<std::int32_t> text(static_cast<std::size_t>(10 + random.Index(50)));
        for (std::int32_t& symbol : text)
            symbol = random.Index(3);
        if (round % 3 == 1) {
            const int length = random.Index(12);
            const auto from = static_cast<std::size_t>(random.Index(static_cast<int>(text.size()) - length) - 1);
            for (int k = 0; k < length; ++k)
                text.push_back(text[from + static_cast<std::size_t>(k)]);
        } else if (round % 3 == 2) {
            text.insert(text.begin() + random.Index(static_cast<int>(text.size())) - 1,
                        static_cast<std::size_t>(random.Index(10)), 1);
        }
        const int least_short = random.Index(4);
        const auto words = AllWords(text);
        int overlapping = 0;
        for (const auto& [word, starts] : words) {
            for (std::size_t k = 1; k < starts.size(); ++k) {
                if (starts[k] - starts[k - 1] < static_cast<int>(word.size()))
                    overlapping = std::max(overlapping, static_cast<int>(word.size()));
            }
        }
        const int short_length = std::max(least_short, overlapping);
        std::int64_t most_gain = std::numeric_limits<std::int64_t>::min();
        for (const auto& [word, starts] : words) {
            const auto length = static_cast<std::int64_t>(word.size());
            if (length > short_length && starts.size() >= 2)
                most_gain = std::max(most_gain, (length - 1) * static_cast<std::int64_t>(starts.size() - 1) - 1);
        }

        for (const int most_short : {short_length, short_length - 1}) {
            SCOPED_TRACE(testing::Message() << "round " << round << ", most short " << most_short);
            ProgressMeter meter(none, "", 1);
            bool cancelled = true;
            std::optional<SuffixArray> suffixes;
            const std::optional<LongWordBound> bound =
                BoundLongWords(text, 4, least_short, most_short, meter, cancelled, suffixes);
            EXPECT_FALSE(cancelled);
            if (most_short < short_length) {
                EXPECT_FALSE(bound.has_value());
                continue;
            }
            ASSERT_TRUE(bound.has_value());
            EXPECT_EQ(bound->short_length, short_length);
            EXPECT_EQ(bound->most_gain, most_gain);
        }
    }
}

}  // namespace
}  // namespace tessarin
