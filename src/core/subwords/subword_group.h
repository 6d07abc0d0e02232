#pragma once

#include <cstdint>
#include <vector>

#include "subwords/occurrence.h"

namespace tessarin {

// One subword that occurs at least twice. Its text is the group's length of symbols from `at`.
struct Subword {
    std::int32_t count = 0;  // number of occurrences
    std::int32_t rank = 0;   // 1-based place in its group, 1 = most frequent
    Occurrence at;           // its first occurrence
    // Index, in the group one symbol shorter, of this word without its last symbol (-1 at length 1).
    std::int32_t parent = -1;
    // Every occurrence in increasing (sequence index, position) order, overlapping ones included;
    // kept only when the search was asked for positions, empty otherwise.
    std::vector<Occurrence> occurrences;
};

// The repeated subwords of one length, by decreasing count. Equal counts keep the order of their
// symbols at lengths 1 and 2; from length 3 on they keep the order of discovery: by their
// parents' order, and among the words of one parent by first occurrence.
struct SubwordGroup {
    int length = 0;
    std::vector<Subword> words;
};

}  // namespace tessarin
