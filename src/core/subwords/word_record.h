#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tessarin {

// Where a word occurs: its first symbol's 1-based position in sequence `sequence_index` (0-based).
struct Occurrence {
    std::int32_t position = 0;
    std::int32_t sequence_index = 0;
};

// One subword, or one grammar rule. symbols[1..L] is the word; symbols[0] is free for the search
// and holds a rule's own code in a grammar. positions[0] is a header (count f in `position`, rank
// within its length group in `sequence_index`, 1 = most frequent); positions[1..f] the occurrences
// in increasing (sequence index, position) order, overlapping ones included.
struct WordRecord {
    std::vector<std::int32_t> symbols;
    std::vector<Occurrence> positions;

    int Length() const { return symbols.empty() ? 0 : static_cast<int>(symbols.size()) - 1; }
    int Count() const { return positions.empty() ? 0 : positions[0].position; }
    int Rank() const { return positions.empty() ? 0 : positions[0].sequence_index; }
    void SetCount(int count) { positions[0].position = count; }
    void SetRank(int rank) { positions[0].sequence_index = rank; }
};

// All repeated words: entry 0 is scratch, entries 1..W grouped by increasing length and, within
// a length, by decreasing count (ties in symbol order at lengths 1 and 2, else order of discovery).
using WordList = std::vector<WordRecord>;

// Coded sequences searched together; each is indexed from 1 (index 0 is ignored).
using SequenceSet = std::vector<std::span<const std::int32_t>>;

// The length of a 1-based sequence (0 for an empty array).
inline int SequenceLength(std::span<const std::int32_t> sequence) {
    return sequence.empty() ? 0 : static_cast<int>(sequence.size()) - 1;
}

}  // namespace tessarin
