#include "surrogate/edge_lists.h"

#include "surrogate/coded_length.h"

namespace tessarin {

EdgeLists BuildPairLists(std::span<const std::int32_t> coded, int alphabet_size) {
    const int length = CodedLength(coded);
    EdgeLists lists(static_cast<std::size_t>(alphabet_size) + 1, EdgeList(1, 0));
    for (int i = 1; i < length; ++i)
        ++lists[coded[i]][0];
    for (int v = 1; v <= alphabet_size; ++v)
        lists[v].assign(static_cast<std::size_t>(lists[v][0]) + 1, 0);
    for (int i = 1; i < length; ++i) {
        EdgeList& list = lists[coded[i]];
        list[++list[0]] = coded[i + 1];
    }
    lists[0] = {0, length >= 1 ? coded[1] : 0, length >= 1 ? coded[length] : 0};
    return lists;
}

TripleLists BuildTripleLists(std::span<const std::int32_t> coded, int alphabet_size) {
    const int length = CodedLength(coded);
    if (length < 2)
        throw SurrogateRefusal("A sequence of fewer than 2 symbols has no pairs to keep: choose \"Only Symbols\".");
    const auto side = static_cast<std::size_t>(alphabet_size) + 1;
    std::vector<std::int32_t> pair_table(side * side, 0);  // pair count, then its vertex number
    auto cell = [&](int i) -> std::int32_t& { return pair_table[coded[i] * side + coded[i + 1]]; };
    for (int i = 1; i < length; ++i)
        ++cell(i);

    TripleLists triples;
    triples.pair_words.emplace_back();
    triples.edge_lists.emplace_back();
    for (int x = 1; x <= alphabet_size; ++x) {
        for (int y = 1; y <= alphabet_size; ++y) {
            std::int32_t& entry = pair_table[x * side + y];
            if (entry == 0) continue;
            triples.edge_lists.emplace_back(static_cast<std::size_t>(entry) + 1, 0);
            triples.pair_words.push_back({x, y});
            entry = static_cast<std::int32_t>(triples.pair_words.size()) - 1;
        }
    }
    for (int i = 1; i + 1 < length; ++i) {
        EdgeList& list = triples.edge_lists[cell(i)];
        list[++list[0]] = cell(i + 1);
    }
    // The pair that ends the sequence is followed by one pair fewer than it occurs.
    EdgeList& last = triples.edge_lists[cell(length - 1)];
    last.resize(static_cast<std::size_t>(last[0]) + 1);
    triples.edge_lists[0] = {0, cell(1), cell(length - 1)};
    return triples;
}

}  // namespace tessarin
