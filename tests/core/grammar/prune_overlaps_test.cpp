#include "grammar/prune_overlaps.h"

#include <gtest/gtest.h>

#include <string>

namespace tessarin {
namespace {

// A word over the letters A, B, ... with its header (count from the occurrences, the given rank)
// and its occurrences as (position, rule) pairs.
WordRecord Word(const std::string& letters, int rank, std::vector<Occurrence> occurrences) {
    WordRecord word;
    word.symbols.push_back(0);
    for (const char letter : letters)
        word.symbols.push_back(letter - 'A' + 1);
    word.positions.push_back(Occurrence{static_cast<std::int32_t>(occurrences.size()), rank});
    word.positions.insert(word.positions.end(), occurrences.begin(), occurrences.end());
    return word;
}

// "letters count rank: positions" for each word, in list order.
std::string Listing(const WordList& words) {
    std::string text;
    for (std::size_t i = 1; i < words.size(); ++i) {
        for (int k = 1; k <= words[i].Length(); ++k)
            text += static_cast<char>('A' + words[i].symbols[k] - 1);
        text += " " + std::to_string(words[i].Count()) + " " + std::to_string(words[i].Rank()) + ":";
        for (int j = 1; j <= words[i].Count(); ++j) {
            text += " " + std::to_string(words[i].positions[j].position);
            if (words[i].positions[j].sequence_index != 0)
                text += "/" + std::to_string(words[i].positions[j].sequence_index);
        }
        text += "; ";
    }
    return text;
}

struct PruneCase {
    const char* fault;
    WordList words;
    const char* expected;
};

class PruneOverlapsTest : public ::testing::TestWithParam<PruneCase> {};

TEST_P(PruneOverlapsTest, KeepsNonOverlappingOccurrencesAndReordersTheGroup) {
    WordList words = GetParam().words;
    PruneOverlaps(words);
    EXPECT_EQ(Listing(words), GetParam().expected) << GetParam().fault;
}

INSTANTIATE_TEST_SUITE_P(Cases, PruneOverlapsTest,
                         ::testing::Values(
                             // AAAA: AA at 1, 2, 3 keeps 1 and 3; AAA at 1, 2 keeps 1.
                             PruneCase{"compares with the last kept occurrence, not the last one seen",
                                       {{},
                                        Word("A", 1, {{1, 0}, {2, 0}, {3, 0}, {4, 0}}),
                                        Word("AA", 1, {{1, 0}, {2, 0}, {3, 0}}),
                                        Word("AAA", 1, {{1, 0}, {2, 0}})},
                                       "A 4 1: 1 2 3 4; AA 2 1: 1 3; AAA 1 1: 1; "},
                             // AAABAB: AA drops to 1 and AB moves before it, each keeping its rank.
                             PruneCase{"ranks renumbered, or the word not moved past a lower count",
                                       {{},
                                        Word("A", 1, {{1, 0}, {2, 0}, {3, 0}, {5, 0}}),
                                        Word("B", 2, {{4, 0}, {6, 0}}),
                                        Word("AA", 1, {{1, 0}, {2, 0}}),
                                        Word("AB", 2, {{3, 0}, {5, 0}})},
                                       "A 4 1: 1 2 3 5; B 2 2: 4 6; AB 2 2: 3 5; AA 1 1: 1; "},
                             PruneCase{"a word moved past an equal count, or out of its length group",
                                       {{},
                                        Word("A", 1, {{1, 0}, {2, 0}}),
                                        Word("BB", 1, {{1, 0}, {2, 0}, {3, 0}}),
                                        Word("AB", 2, {{5, 0}, {8, 0}}),
                                        Word("CD", 3, {{10, 0}, {12, 0}}),
                                        Word("ABA", 1, {{1, 0}, {5, 0}, {9, 0}})},
                                       "A 2 1: 1 2; BB 2 1: 1 3; AB 2 2: 5 8; CD 2 3: 10 12; ABA 3 1: 1 5 9; "},
                             PruneCase{"occurrences in different rules taken for overlaps",
                                       {{}, Word("AA", 1, {{1, 0}, {1, 1}, {2, 1}, {3, 2}})},
                                       "AA 3 1: 1 1/1 3/2; "}));

}  // namespace
}  // namespace tessarin
