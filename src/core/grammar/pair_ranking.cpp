#include "grammar/pair_ranking.h"

namespace tessarin {

void PairRanking::Update(RepeatTrie& trie) {
    for (const std::int32_t node : trie.TakeChangedPairs()) {
        if (handles_.size() <= static_cast<std::size_t>(node)) handles_.resize(static_cast<std::size_t>(node) + 1);
        Handles& handles = handles_[node];
        if (handles.search >= 0) {
            by_search_.Erase(handles.search);
            by_list_.Erase(handles.list);
            handles = Handles{};
        }
        // The node may have gone, or been taken for a longer word, since its count changed.
        const std::int32_t parent = trie.Parent(node);
        if (parent < 0 || trie.Depth(node) != 2 || trie.Count(node) < 2) continue;
        const std::int32_t first = trie.Symbol(parent);
        const std::int32_t second = trie.Symbol(node);
        const std::int32_t count = trie.Count(node);
        handles.search = by_search_.Insert({-count, first, second}, node);
        handles.list = by_list_.Insert({-trie.Kept(node), -count, first, second}, node);
    }
}

std::pair<std::int32_t, std::int32_t> PairRanking::At(int offset) const {
    const std::int32_t node = by_list_.ValueAt(offset);
    return {node, by_search_.Rank(handles_[node].search) + 1};
}

}  // namespace tessarin
