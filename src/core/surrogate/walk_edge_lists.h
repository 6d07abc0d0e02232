#pragma once

#include <cstdint>
#include <vector>

#include "surrogate/edge_lists.h"

namespace tessarin {

enum class WalkOutcome {
    kComplete,
    kEdgeListExhausted,  // a vertex had no edge left before the end: "Edge List Exhausted"
    kOverlapMismatch,    // consecutive pair vertices did not overlap: "Overlap Mismatch"
};

// A surrogate at positions 1..T (index 0 unused); after a failed walk the positions not reached
// stay 0.
struct Walk {
    std::vector<std::int32_t> sequence;
    WalkOutcome outcome = WalkOutcome::kComplete;
};

// Follows the pair lists from the start vertex, each list in its order, and returns the symbols
// visited. The read cursors are left in slot 0, where the next reordering finds them.
Walk WalkPairLists(EdgeLists& lists);

// The same over the triple lists: the start pair's two symbols, then the second symbol of each
// pair vertex visited.
Walk WalkTripleLists(EdgeLists& lists, const PairWords& pair_words);

}  // namespace tessarin
