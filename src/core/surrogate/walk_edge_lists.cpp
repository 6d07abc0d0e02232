#include "surrogate/walk_edge_lists.h"

namespace tessarin {
namespace {

// Sets every read cursor to 1 and answers the number of edges.
int StartCursors(EdgeLists& lists) {
    int edges = 0;
    for (std::size_t v = 1; v < lists.size(); ++v) {
        edges += EdgeCount(lists[v]);
        lists[v][0] = 1;
    }
    return edges;
}

// The next vertex from u's list, or 0 when u has no edge left.
std::int32_t TakeEdge(EdgeList& list) {
    if (list[0] > EdgeCount(list)) return 0;
    return list[list[0]++];
}

}  // namespace

Walk WalkPairLists(EdgeLists& lists) {
    const int length = 1 + StartCursors(lists);
    Walk walk{std::vector<std::int32_t>(static_cast<std::size_t>(length) + 1, 0), WalkOutcome::kComplete};
    walk.sequence[1] = lists[0][kStartSlot];
    for (int p = 2; p <= length; ++p) {
        const std::int32_t next = TakeEdge(lists[walk.sequence[p - 1]]);
        if (next == 0) {
            walk.outcome = WalkOutcome::kEdgeListExhausted;
            break;
        }
        walk.sequence[p] = next;
    }
    return walk;
}

Walk WalkTripleLists(EdgeLists& lists, const PairWords& pair_words) {
    const int length = 2 + StartCursors(lists);
    Walk walk{std::vector<std::int32_t>(static_cast<std::size_t>(length) + 1, 0), WalkOutcome::kComplete};
    std::int32_t vertex = lists[0][kStartSlot];
    walk.sequence[1] = pair_words[vertex].first;
    walk.sequence[2] = pair_words[vertex].second;
    for (int p = 3; p <= length; ++p) {
        const std::int32_t next = TakeEdge(lists[vertex]);
        if (next == 0) {
            walk.outcome = WalkOutcome::kEdgeListExhausted;
            break;
        }
        if (pair_words[next].first != pair_words[vertex].second) {
            walk.outcome = WalkOutcome::kOverlapMismatch;
            break;
        }
        walk.sequence[p] = pair_words[next].second;
        vertex = next;
    }
    return walk;
}

}  // namespace tessarin
