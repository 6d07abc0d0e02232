#include "grammar/pair_ranking.h"

#include <utility>

namespace tessarin {

void PairRanking::Note(std::span<const std::int32_t> changed) {
    noted_.insert(noted_.end(), changed.begin(), changed.end());
}

void PairRanking::Update(RepeatTrie& trie) {
    for (const std::int32_t node : std::exchange(noted_, {})) {
        if (ranked_.size() <= static_cast<std::size_t>(node)) ranked_.resize(static_cast<std::size_t>(node) + 1);
        if (ranked_[node]) {
            const Keys& keys = keys_.at(node);
            by_search_.Erase(keys.search);
            by_list_.Erase(keys.list);
        }
        // The node may have gone, or been taken for a longer word, since its count changed: a
        // ranked pair's count changes before either happens, so it is noted and leaves here.
        const std::int32_t parent = trie.Parent(node);
        ranked_[node] = parent >= 0 && trie.Depth(node) == 2 && trie.Count(node) >= 2;
        if (!ranked_[node]) {
            keys_.erase(node);
            continue;
        }
        const std::int32_t first = trie.Symbol(parent);
        const std::int32_t second = trie.Symbol(node);
        const std::int32_t count = trie.Count(node);
        const Keys keys{{-count, first, second}, {-trie.Kept(node), -count, first, second}};
        by_search_.Insert(keys.search, node);
        by_list_.Insert(keys.list, node);
        keys_[node] = keys;
    }
}

std::pair<std::int32_t, std::int32_t> PairRanking::At(int offset) const {
    const std::int32_t node = by_list_.ValueAt(offset);
    return {node, by_search_.Rank(keys_.at(node).search) + 1};
}

}  // namespace tessarin
