#include "grammar/long_words.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "grammar/repeat_trie.h"
#include "session/random_generator.h"

namespace tessarin {
namespace {

constexpr int kDepth = 10;

// The search order by its definition, on any trie: count, then the prefixes one symbol shorter,
// and between two words with one such prefix their first occurrences; pairs by their symbols.
bool SearchBefore(RepeatTrie& trie, std::int32_t a, std::int32_t b) {
    if (trie.Count(a) != trie.Count(b)) return trie.Count(a) > trie.Count(b);
    if (trie.Depth(a) <= 2) {
        const std::int32_t a_first = trie.Depth(a) == 2 ? trie.Symbol(trie.Parent(a)) : 0;
        const std::int32_t b_first = trie.Depth(b) == 2 ? trie.Symbol(trie.Parent(b)) : 0;
        return a_first != b_first ? a_first < b_first : trie.Symbol(a) < trie.Symbol(b);
    }
    if (trie.Parent(a) == trie.Parent(b)) return trie.FirstOccurrence(a) < trie.FirstOccurrence(b);
    return SearchBefore(trie, trie.Parent(a), trie.Parent(b));
}

// Of the words of `length` symbols that occur `count` times in a trie of all lengths, the first
// in the search, with its occurrences.
LongWords::Word FirstInSearch(RepeatTrie& all, int length, std::int32_t count) {
    std::int32_t first = -1;
    for (const std::int32_t node : all.Group(length)) {
        if (all.Count(node) == count && (first < 0 || SearchBefore(all, node, first))) first = node;
    }
    LongWords::Word word{length, {}};
    std::vector<std::int32_t> ends;
    all.KeptOccurrences(first, word.starts, ends);
    return word;
}

std::int32_t MostCount(RepeatTrie& all, int length) {
    std::int32_t most = 0;
    for (const std::int32_t node : all.Group(length))
        most = std::max(most, all.Count(node));
    return most;
}

// What a walk over the whole list takes among the words longer than kDepth.
std::optional<LongWords::Word> ExpectedLongest(RepeatTrie& all) {
    if (all.GroupCount() <= kDepth) return std::nullopt;
    return FirstInSearch(all, all.GroupCount(), MostCount(all, all.GroupCount()));
}

std::optional<LongWords::Word> ExpectedMostGain(RepeatTrie& all, std::int64_t& gain) {
    int best = 0;
    for (int length = all.GroupCount(); length > kDepth; --length) {
        const std::int64_t here = std::int64_t{length - 1} * (MostCount(all, length) - 1) - 1;
        if (best == 0 || here > gain) {
            best = length;
            gain = here;
        }
    }
    if (best == 0) return std::nullopt;
    return FirstInSearch(all, best, MostCount(all, best));
}

void ExpectSameWord(const std::optional<LongWords::Word>& found, const std::optional<LongWords::Word>& expected) {
    ASSERT_EQ(found.has_value(), expected.has_value());
    if (!found) return;
    EXPECT_EQ(found->length, expected->length);
    EXPECT_EQ(found->starts, expected->starts);
}

// Whether a word longer than kDepth overlaps itself, which the compression rules out for the
// words longer than its trie's depth.
bool LongWordOverlaps(RepeatTrie& all) {
    for (int length = kDepth + 1; length <= all.GroupCount(); ++length) {
        for (const std::int32_t node : all.Group(length)) {
            if (all.Kept(node) < all.Count(node)) return true;
        }
    }
    return false;
}

// Random text with stretches copied two to four times, some pairs of stretches of one length and
// number of copies, so that long words tie on length and count and the search order decides, and
// some copies with a symbol changed, so that long repeats branch.
std::vector<std::int32_t> TextWithCopies(RandomGenerator& random) {
    std::vector<std::int32_t> symbols;
    for (int i = 0; i < 2000; ++i)
        symbols.push_back(random.Index(4));
    for (int stretches = 1 + random.Index(4); stretches > 0; --stretches) {
        const int length = 12 + random.Index(80);
        const int copies = random.Index(3);
        for (int twin = random.Index(2) - 1; twin >= 0; --twin) {
            const auto from = symbols.begin() + random.Index(1500);
            const std::vector<std::int32_t> stretch(from, from + length);
            for (int copy = 0; copy < copies; ++copy) {
                const auto at = symbols.begin() + random.Index(static_cast<int>(symbols.size()));
                const auto inserted = symbols.insert(at, stretch.begin(), stretch.end());
                if (random.Index(4) == 1) inserted[random.Index(length) - 1] = random.Index(4);
            }
        }
    }
    // A stretch copied four times, two copies going on one way and two another, so that two long
    // words tie on their counts all the way up to the stretch and their first occurrences decide.
    if (random.Index(2) == 1) {
        const auto from = symbols.begin() + random.Index(1500);
        // Two ways parting right at the trie's depth meet where the trie's walk starts.
        const std::vector<std::int32_t> stretch(from, from + (random.Index(2) == 1 ? kDepth : 12 + random.Index(40)));
        std::vector<std::int32_t> ways[2];
        const int way_length = 100 + random.Index(60);
        for (std::vector<std::int32_t>& way : ways) {
            for (int i = 0; i < way_length; ++i)
                way.push_back(random.Index(4));
        }
        for (int copy = 0; copy < 4; ++copy) {
            symbols.insert(symbols.end(), stretch.begin(), stretch.end());
            symbols.insert(symbols.end(), ways[copy % 2].begin(), ways[copy % 2].end());
            symbols.push_back(5 + copy);  // ends the copy with a symbol of its own
        }
    }
    return symbols;
}

// The long words read from a trie of depth kDepth against those of a trie of all lengths, as
// the rules change: each pass takes the long word Longest First would, or a short word at random.
TEST(LongWordsTest, MatchTheLongGroupsOfATrieOfAllLengthsThroughReplacements) {
    RandomGenerator random(777);
    const ProgressFn never_cancel = [](const std::string&, float) { return false; };
    int texts_read = 0;
    for (int text = 0; text < 60; ++text) {
        const std::vector<Rule> start{Rule{0, TextWithCopies(random)}};
        std::optional<RepeatTrie> all(std::in_place, std::span<const Rule>(start), std::numeric_limits<int>::max());
        if (LongWordOverlaps(*all)) continue;
        ++texts_read;
        std::optional<RepeatTrie> trie(std::in_place, std::span<const Rule>(start), kDepth, RepeatTrie::Poll{}, kDepth);
        std::int32_t code = 100;
        for (int pass = 0; pass < 12; ++pass) {
            ProgressMeter meter(never_cancel, "", 1);
            const std::optional<LongWords> words = LongWords::Read(
                *trie, [&](std::int32_t a, std::int32_t b) { return SearchBefore(*trie, a, b); }, meter);
            ASSERT_TRUE(words.has_value());
            const std::optional<LongWords::Word> longest = words->Longest();
            ExpectSameWord(longest, ExpectedLongest(*all));
            std::int64_t gain = 0;
            std::int64_t expected_gain = 0;
            const std::optional<LongWords::Word> most_gain = words->MostGain(gain);
            ExpectSameWord(most_gain, ExpectedMostGain(*all, expected_gain));
            if (most_gain) {
                EXPECT_EQ(gain, expected_gain);
            }
            if (testing::Test::HasFailure()) return;

            LongWords::Word taken;
            if (longest && random.Index(3) > 1) {
                taken = *longest;
            } else {
                const int length = 3 + random.Index(kDepth - 3);
                const std::vector<std::int32_t>& group = trie->Group(length);
                if (group.empty()) continue;
                std::vector<std::int32_t> ends;
                taken.length = length;
                trie->KeptOccurrences(group[static_cast<std::size_t>(random.Index(static_cast<int>(group.size())) - 1)],
                                      taken.starts, ends);
                if (taken.Count() < 2) continue;
            }
            ++code;
            // A trie built afresh numbers the slots afresh: both are then built again.
            const bool all_kept = all->Replace(taken.starts, taken.length, code);
            if (!trie->Replace(taken.starts, taken.length, code) || !all_kept) {
                const std::vector<Rule> rules = all->text().ToRules();
                all.emplace(rules, std::numeric_limits<int>::max());
                trie.emplace(rules, kDepth, RepeatTrie::Poll{}, kDepth);
            }
        }
    }
    EXPECT_GT(texts_read, 40);
}

}  // namespace
}  // namespace tessarin
