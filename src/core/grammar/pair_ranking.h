#pragma once

#include <cstdint>
#include <span>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "grammar/ranked_set.h"
#include "grammar/repeat_trie.h"

namespace tessarin {

// The two-symbol words that repeat, ranked both as a fresh search orders them (falling count,
// then by symbols) and as the list orders them after the overlaps are dropped (falling kept
// count, then search order). Kept up to date from the nodes the trie reports changed, so the
// pair search of a pass costs a logarithm of their number rather than a scan of them all, as
// in Re-Pair's priority queue.
class PairRanking {
  public:
    // Notes nodes whose counts have changed while they held pairs, for the next update.
    void Note(std::span<const std::int32_t> changed);
    // Takes in the pairs noted since the last update.
    void Update(RepeatTrie& trie);

    int Size() const { return by_list_.Size(); }
    // The node of the pair at `offset` (0-based) in list order, with its rank in search order (1-based).
    std::pair<std::int32_t, std::int32_t> At(int offset) const;

  private:
    using SearchKey = std::tuple<std::int32_t, std::int32_t, std::int32_t>;              // -count, symbols
    using ListKey = std::tuple<std::int32_t, std::int32_t, std::int32_t, std::int32_t>;  // -kept, -count, symbols
    struct Keys {
        SearchKey search;
        ListKey list;
    };

    RankedSet<SearchKey> by_search_;
    RankedSet<ListKey> by_list_;
    // Per pair node. A genome's trie has tens of millions of nodes and a few thousand pairs: a
    // bit per node tells which are ranked, and only those have their keys kept.
    std::vector<bool> ranked_;
    std::unordered_map<std::int32_t, Keys> keys_;
    std::vector<std::int32_t> noted_;
};

}  // namespace tessarin
