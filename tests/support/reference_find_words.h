#pragma once

#include <cstdint>
#include <vector>

#include "subwords/occurrence.h"

namespace tessarin::testing {

// One word of a whole word list in the literal one-based layout: symbols[1..L] is the word,
// symbols[0] is free (a grammar rule's own code); positions[0] is a header (count f in
// `position`, rank in `sequence_index`), positions[1..f] the occurrences.
struct WordRecord {
    std::vector<std::int32_t> symbols;
    std::vector<Occurrence> positions;

    int Length() const { return symbols.empty() ? 0 : static_cast<int>(symbols.size()) - 1; }
    int Count() const { return positions.empty() ? 0 : positions[0].position; }
    int Rank() const { return positions.empty() ? 0 : positions[0].sequence_index; }
    void SetCount(int count) { positions[0].position = count; }
    void SetRank(int rank) { positions[0].sequence_index = rank; }
};

// Entry 0 is scratch, entries 1..W grouped by increasing length and by decreasing count.
using WordList = std::vector<WordRecord>;

// The subword search done step by step in the slow, obvious way: count tables over every symbol
// and every pair of symbols, and from length 3 on each occurrence of a parent compared with all
// its later ones. A list that already ends with words of length L is carried on from L. Tests
// compare the fast search with it; it is meant to be read, not to be quick.
void ReferenceFindWords(const SequenceSet& sequences, WordList& words, std::int32_t max_length);

}  // namespace tessarin::testing
