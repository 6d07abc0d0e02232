#include "grammar/repeat_trie.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "session/random_generator.h"

namespace tessarin {
namespace {

void ExpectCountRanges(RepeatTrie& trie) {
    for (int length = 1; length <= trie.GroupCount(); ++length) {
        RepeatTrie::CountRange expected;
        for (const std::int32_t node : trie.Group(length)) {
            expected.most = std::max(expected.most, trie.Count(node));
            expected.least = expected.least == 0 ? trie.Count(node) : std::min(expected.least, trie.Count(node));
        }
        for (const std::int32_t node : trie.Group(length))
            expected.at_most += trie.Count(node) == expected.most ? 1 : 0;
        const RepeatTrie::CountRange range = trie.GroupCountRange(length);
        ASSERT_EQ(range.most, expected.most) << "length " << length;
        ASSERT_EQ(range.at_most, expected.at_most) << "length " << length;
        ASSERT_EQ(range.least, expected.least) << "length " << length;
    }
}

// The same words with the same counts, whatever the nodes' numbers.
void ExpectSameGroups(const RepeatTrie& trie, const RepeatTrie& fresh) {
    ASSERT_EQ(trie.GroupCount(), fresh.GroupCount());
    auto counts = [](const RepeatTrie& of, int length) {
        std::vector<std::int32_t> counts;
        for (const std::int32_t node : of.Group(length))
            counts.push_back(of.Count(node));
        std::sort(counts.begin(), counts.end());
        return counts;
    };
    for (int length = 1; length <= trie.GroupCount(); ++length)
        ASSERT_EQ(counts(trie, length), counts(fresh, length)) << "length " << length;
}

// Either a stretch of random text present four to six times in a row, whose words tie on counts
// above 2 that replacements lower without taking them out of their groups, or random text with a
// copy of part of it, a symbol changed, and a run of one symbol.
std::vector<std::int32_t> PlantedText(RandomGenerator& random) {
    const int letters = 1 + random.Index(3);
    std::vector<std::int32_t> symbols;
    for (int i = 0; i < 1000; ++i)
        symbols.push_back(random.Index(letters));
    if (random.Index(2) == 1) {
        const std::vector<std::int32_t> stretch(symbols.begin(), symbols.begin() + 100 + random.Index(200));
        symbols.clear();
        for (int copies = 3 + random.Index(3); copies > 0; --copies)
            symbols.insert(symbols.end(), stretch.begin(), stretch.end());
        return symbols;
    }
    const auto from = symbols.begin() + random.Index(700);
    const std::vector<std::int32_t> copy(from, from + 100 + random.Index(200));
    symbols.insert(symbols.end(), copy.begin(), copy.end());
    symbols[symbols.size() - static_cast<std::size_t>(random.Index(100))] = random.Index(letters);
    symbols.insert(symbols.begin() + random.Index(1000), static_cast<std::size_t>(random.Index(60)), 1);
    return symbols;
}

// The occurrences that a left-to-right pass keeps, each starting past the end of the last one kept.
std::int32_t LiteralKept(const std::vector<Rule>& rules, const std::vector<std::int32_t>& word) {
    std::int32_t kept = 0;
    for (const Rule& rule : rules) {
        std::size_t free_from = 0;
        for (std::size_t at = 0; at + word.size() <= rule.symbols.size(); ++at) {
            if (at >= free_from && std::equal(word.begin(), word.end(), rule.symbols.begin() + at)) {
                ++kept;
                free_from = at + word.size();
            }
        }
    }
    return kept;
}

// Asks for the kept count of every word of the trie, the longest words first or last.
void ExpectLiteralKeptCounts(RepeatTrie& trie, const std::vector<Rule>& rules, bool longest_first) {
    for (int step = 0; step < trie.GroupCount() - 1; ++step) {
        const int length = longest_first ? trie.GroupCount() - step : step + 2;
        for (const std::int32_t node : trie.Group(length)) {
            std::vector<std::int32_t> word;
            for (std::int32_t at = node; trie.Depth(at) > 0; at = trie.Parent(at))
                word.insert(word.begin(), trie.Symbol(at));
            ASSERT_EQ(trie.Kept(node), LiteralKept(rules, word)) << "length " << length;
        }
    }
}

// Periodic stretches, runs and borders of every kind in a few rules, with and without a cut: the
// build settles the kept counts of most words itself, and every one must be what a literal pass
// keeps.
TEST(RepeatTrieTest, KnowsEveryWordsKeptCount) {
    RandomGenerator random(77);
    for (int text = 0; text < 24; ++text) {
        std::vector<Rule> rules;
        const int rule_count = random.Index(3);
        for (int rule = 0; rule < rule_count; ++rule) {
            std::vector<std::int32_t> symbols;
            const int letters = random.Index(3);
            while (symbols.size() < 150) {
                const int period = random.Index(6);
                const int repeats = random.Index(5);
                std::vector<std::int32_t> unit;
                for (int k = 0; k < period; ++k)
                    unit.push_back(random.Index(letters));
                for (int k = 0; k < repeats; ++k)
                    symbols.insert(symbols.end(), unit.begin(), unit.end());
            }
            rules.push_back(Rule{rule == 0 ? 0 : 100 + rule, symbols});
        }
        const int depth = random.Index(2) == 1 ? 8 : std::numeric_limits<int>::max();
        RepeatTrie trie(rules, depth);
        SCOPED_TRACE(testing::Message() << "text " << text);
        ExpectLiteralKeptCounts(trie, rules, false);
    }
}

// Two copies of a tandem repeat of three periods of 130 symbols, which leaves borders longer than
// a node notes, each followed by the same symbols. Working out the border of a long word gives its
// prefixes theirs, asked for afterwards: those whose occurrences overlap keep fewer than their count.
TEST(RepeatTrieTest, KnowsTheKeptCountsOfALongPeriodsWordsLongestFirst) {
    RandomGenerator random(78);
    auto letters = [&](int count) {
        std::vector<std::int32_t> symbols;
        for (int k = 0; k < count; ++k)
            symbols.push_back(random.Index(4));
        return symbols;
    };
    const std::vector<std::int32_t> unit = letters(130);
    std::vector<std::int32_t> stretch;
    for (int copy = 0; copy < 3; ++copy)
        stretch.insert(stretch.end(), unit.begin(), unit.end());
    const std::vector<std::int32_t> after = letters(5);
    std::vector<std::int32_t> symbols;
    for (int copy = 0; copy < 2; ++copy) {
        const std::vector<std::int32_t> before = letters(40);
        symbols.insert(symbols.end(), before.begin(), before.end());
        symbols.insert(symbols.end(), stretch.begin(), stretch.end());
        symbols.insert(symbols.end(), after.begin(), after.end());
    }
    const std::vector<Rule> rules{Rule{0, symbols}};
    RepeatTrie trie(rules, std::numeric_limits<int>::max());
    ExpectLiteralKeptCounts(trie, rules, true);
}

// Words picked at random, short and long, replaced pass after pass: counts fall all over and
// rise where the new symbols repeat, and the texts are long enough for some replacements to
// leave the trie to be built again. The ranges are asked for every other pass or so, so that
// some are kept through several passes and some found again from their groups. A trie built again
// writes over the tables of the one before, and must hold what a trie built afresh holds.
TEST(RepeatTrieTest, KeepsEveryGroupsGreatestAndLeastCountThroughReplacements) {
    RandomGenerator random(4242);
    for (int text = 0; text < 40; ++text) {
        const std::vector<Rule> start{Rule{0, PlantedText(random)}};
        const int depth = random.Index(2) == 1 ? 12 : std::numeric_limits<int>::max();
        std::optional<RepeatTrie> trie(std::in_place, std::span<const Rule>(start), depth);
        std::int32_t code = 100;
        std::vector<std::int32_t> starts;
        std::vector<std::int32_t> ends;
        for (int pass = 0; pass < 60 && trie->GroupCount() >= 2; ++pass) {
            const int length = 1 + random.Index(trie->GroupCount() - 1);
            const std::vector<std::int32_t>& group = trie->Group(length);
            if (group.empty()) continue;
            trie->KeptOccurrences(group[static_cast<std::size_t>(random.Index(static_cast<int>(group.size())) - 1)],
                                  starts, ends);
            if (starts.size() < 2) continue;
            if (!trie->Replace(starts, length, ++code)) {
                const std::vector<Rule> rules = trie->text().ToRules();
                RepeatTrie::Tables tables = trie->LetGoOfTables();
                trie.reset();
                trie.emplace(rules, depth, RepeatTrie::Poll{}, std::numeric_limits<int>::max(), std::nullopt,
                             OverlappingWords{}, std::move(tables));
                ExpectSameGroups(*trie, RepeatTrie(rules, depth));
            }
            if (random.Index(2) == 1) ExpectCountRanges(*trie);
        }
        ExpectCountRanges(*trie);
    }
}

}  // namespace
}  // namespace tessarin
