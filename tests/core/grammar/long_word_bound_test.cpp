#include "grammar/long_word_bound.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "grammar/joined_rules.h"
#include "session/random_generator.h"

namespace tessarin {
namespace {

// The short length and the bound counted the literal way: every word of each text with its starts.
LongWordBound CountedOneByOne(const std::vector<std::vector<std::int32_t>>& texts, int least_short) {
    std::map<std::vector<std::int32_t>, std::vector<std::pair<std::size_t, int>>> words;  // (text, start)
    for (std::size_t t = 0; t < texts.size(); ++t) {
        const std::vector<std::int32_t>& text = texts[t];
        for (std::size_t start = 0; start < text.size(); ++start) {
            for (std::size_t end = start + 1; end <= text.size(); ++end)
                words[std::vector<std::int32_t>(text.begin() + start, text.begin() + end)].emplace_back(
                    t, static_cast<int>(start));
        }
    }
    int overlapping = 0;
    for (const auto& [word, starts] : words) {
        for (std::size_t k = 1; k < starts.size(); ++k) {
            if (starts[k].first == starts[k - 1].first &&
                starts[k].second - starts[k - 1].second < static_cast<int>(word.size()))
                overlapping = std::max(overlapping, static_cast<int>(word.size()));
        }
    }
    LongWordBound bound;
    bound.short_length = std::max(least_short, overlapping);
    for (const auto& [word, starts] : words) {
        const auto length = static_cast<std::int64_t>(word.size());
        if (length > bound.short_length && starts.size() >= 2)
            bound.most_gain =
                std::max(bound.most_gain, (length - 1) * static_cast<std::int64_t>(starts.size() - 1) - 1);
    }
    return bound;
}

// Every repeated word longer than `least_short` overlaps itself, counted the literal way, exactly
// where the listed intervals say.
void ExpectOverlapsAsListed(const std::vector<std::int32_t>& text, int least_short, const SuffixArray& suffixes,
                            const OverlappingWords& overlapping) {
    EXPECT_EQ(overlapping.listed_above, least_short);
    for (std::size_t length = static_cast<std::size_t>(least_short) + 1; length <= text.size(); ++length) {
        std::map<std::vector<std::int32_t>, std::vector<std::int32_t>> places;  // in suffix order
        for (std::size_t place = 0; place < suffixes.order.size(); ++place) {
            const auto start = static_cast<std::size_t>(suffixes.order[place]);
            if (start + length <= text.size())
                places[{text.begin() + static_cast<std::ptrdiff_t>(start),
                        text.begin() + static_cast<std::ptrdiff_t>(start + length)}]
                    .push_back(static_cast<std::int32_t>(place));
        }
        for (const auto& [word, at] : places) {
            std::vector<std::int32_t> starts;
            for (const std::int32_t place : at)
                starts.push_back(suffixes.order[static_cast<std::size_t>(place)]);
            std::sort(starts.begin(), starts.end());
            bool overlaps = false;
            for (std::size_t k = 1; k < starts.size(); ++k)
                overlaps = overlaps || starts[k] - starts[k - 1] < static_cast<std::int32_t>(length);
            if (starts.size() < 2) continue;
            OverlappingWords::Cursor cursor(overlapping);
            EXPECT_EQ(cursor.Apart(at.front(), at.back(), static_cast<int>(length)), !overlaps)
                << "length " << length << " at " << starts.front();
        }
    }
}

std::vector<std::int32_t> RandomText(RandomGenerator& random, int least_length) {
    std::vector<std::int32_t> text(static_cast<std::size_t>(least_length + random.Index(50)));
    for (std::int32_t& symbol : text)
        symbol = random.Index(3);
    return text;
}

// Random texts over three letters, some with a planted copy or a run, against a count of every word.
TEST(LongWordBoundTest, MatchesTheWordsOfTheTextCountedOneByOne) {
    RandomGenerator random(2027);
    const ProgressFn none = NoProgress;
    for (int round = 0; round < 300; ++round) {
        std::vector<std::int32_t> text = RandomText(random, 10);
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
        const LongWordBound expected = CountedOneByOne({text}, least_short);

        for (const int most_short : {expected.short_length, expected.short_length - 1}) {
            SCOPED_TRACE(testing::Message() << "round " << round << ", most short " << most_short);
            ProgressMeter meter(none, "", 1);
            bool cancelled = true;
            std::optional<SuffixArray> suffixes;
            OverlappingWords overlapping;
            const std::optional<LongWordBound> bound =
                BoundLongWords(text, 4, least_short, most_short, meter, cancelled, suffixes, overlapping);
            EXPECT_FALSE(cancelled);
            if (most_short < expected.short_length) {
                EXPECT_FALSE(bound.has_value());
                continue;
            }
            ASSERT_TRUE(bound.has_value());
            EXPECT_EQ(bound->short_length, expected.short_length);
            EXPECT_EQ(bound->most_gain, expected.most_gain);
            ExpectOverlapsAsListed(text, least_short, *suffixes, overlapping);
        }
    }
}

// A rebuilt trie is cut where the bound over its rules joined says: no word may run from one rule
// into the next, nor overlap an occurrence in another rule.
TEST(LongWordBoundTest, ReadsJoinedRulesAsTextsApart) {
    RandomGenerator random(2028);
    const ProgressFn none = NoProgress;
    for (int round = 0; round < 200; ++round) {
        std::vector<Rule> rules(static_cast<std::size_t>(random.Index(4)));
        for (Rule& rule : rules)
            rule.symbols = RandomText(random, 1);
        // Rule 0 again at the start of rule 1: a long word repeated in two rules.
        if (rules.size() >= 2)
            rules[1].symbols.insert(rules[1].symbols.begin(), rules[0].symbols.begin(), rules[0].symbols.end());
        std::vector<std::vector<std::int32_t>> texts;
        for (const Rule& rule : rules)
            texts.push_back(rule.symbols);
        const int least_short = random.Index(4);
        SCOPED_TRACE(testing::Message() << "round " << round);
        const JoinedRules joined = JoinRules(rules);
        ProgressMeter meter(none, "", 1);
        bool cancelled = true;
        std::optional<SuffixArray> suffixes;
        OverlappingWords overlapping;
        const std::optional<LongWordBound> bound = BoundLongWords(joined.symbols, joined.alphabet_size, least_short,
                                                                  1000, meter, cancelled, suffixes, overlapping);
        ASSERT_TRUE(bound.has_value());
        const LongWordBound expected = CountedOneByOne(texts, least_short);
        EXPECT_EQ(bound->short_length, expected.short_length);
        EXPECT_EQ(bound->most_gain, expected.most_gain);
    }
}

}  // namespace
}  // namespace tessarin
