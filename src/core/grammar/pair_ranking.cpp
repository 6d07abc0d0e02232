#include "grammar/pair_ranking.h"

#include <utility>

namespace tessarin {

// A node that held a pair and now holds a longer word must leave the ranking too.
void PairRanking::Note(const RepeatTrie& trie, std::span<const std::int32_t> changed) {
    for (const std::int32_t node : changed) {
        const bool ranked = static_cast<std::size_t>(node) < ranked_.size() && ranked_[node];
        if (ranked || trie.Depth(node) == 2) noted_.push_back(node);
    }
}

void PairRanking::Update(RepeatTrie& trie) {
    for (const std::int32_t node : std::exchange(noted_, {})) {
        if (ranked_.size() <= static_cast<std::size_t>(node)) ranked_.resize(static_cast<std::size_t>(node) + 1);
        if (ranked_[node]) {
            const Handles& handles = handles_.at(node);
            by_search_.Erase(handles.search);
            by_list_.Erase(handles.list);
        }
        // The node may have gone, or been taken for a longer word, since its count changed.
        const std::int32_t parent = trie.Parent(node);
        ranked_[node] = parent >= 0 && trie.Depth(node) == 2 && trie.Count(node) >= 2;
        if (!ranked_[node]) {
            handles_.erase(node);
            continue;
        }
        const std::int32_t first = trie.Symbol(parent);
        const std::int32_t second = trie.Symbol(node);
        const std::int32_t count = trie.Count(node);
        handles_[node] = Handles{by_search_.Insert({-count, first, second}, node),
                                 by_list_.Insert({-trie.Kept(node), -count, first, second}, node)};
    }
}

std::pair<std::int32_t, std::int32_t> PairRanking::At(int offset) const {
    const std::int32_t node = by_list_.ValueAt(offset);
    return {node, by_search_.Rank(handles_.at(node).search) + 1};
}

}  // namespace tessarin
