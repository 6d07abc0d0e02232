#include "surrogate/permute_edge_lists.h"

#include <utility>
#include <vector>

#include "logfile/number_text.h"

namespace tessarin {
namespace {

constexpr std::int64_t kStatusRounds = 1000;
constexpr std::int64_t kQuestionRounds = 1000000;

int VertexCount(const EdgeLists& lists) {
    return static_cast<int>(lists.size()) - 1;
}

// Whether following last edges leads from every vertex to the end vertex. Each vertex is walked
// once and remembers the answer, so the test is linear in the number of vertices.
bool LastEdgesReachEnd(const EdgeLists& lists) {
    enum Mark : std::int8_t { kUnknown, kOnPath, kReaches, kFails };
    const int end = lists[0][kEndSlot];
    std::vector<Mark> marks(lists.size(), kUnknown);
    marks[end] = kReaches;
    std::vector<int> path;
    for (int v = 1; v <= VertexCount(lists); ++v) {
        path.clear();
        int u = v;
        Mark found = kFails;
        while (marks[u] == kUnknown) {
            marks[u] = kOnPath;
            path.push_back(u);
            if (EdgeCount(lists[u]) < 1) break;
            u = lists[u].back();
        }
        if (marks[u] == kReaches || marks[u] == kFails) found = marks[u];
        for (const int p : path)
            marks[p] = found;
        if (found == kFails) return false;
    }
    return true;
}

// Slot 0 of each list with more than one edge becomes the running sum of (d - 1); the others keep
// what the previous walk left there, and the sum goes on from it.
void Cumulate(EdgeLists& lists) {
    lists[0][0] = 0;
    for (int v = 1; v <= VertexCount(lists); ++v) {
        const int d = EdgeCount(lists[v]);
        if (d > 1) lists[v][0] = lists[v - 1][0] + d - 1;
    }
}

void ShuffleSlots(EdgeList& list, int last, RandomGenerator& random) {
    for (int i = last; i >= 2; --i)
        std::swap(list[i], list[random.Index(i)]);
}

}  // namespace

PermuteOutcome PermuteEdgeLists(EdgeLists& lists, std::int64_t& rounds, RandomGenerator& random,
                                const ShuffleCallbacks& callbacks) {
    Cumulate(lists);
    const int vertices = VertexCount(lists);
    const int total = lists[vertices][0];
    for (;;) {
        ++rounds;
        if (rounds % kStatusRounds == 0 && callbacks.status("Permutation:" + IntegerText(rounds))) {
            return PermuteOutcome::kCancelled;
        }
        const int k = random.Index(total);
        bool last_edge_moved = false;
        if (vertices >= 1 && k <= lists[1][0]) {
            EdgeList& list = lists[1];
            const int m = EdgeCount(list);
            const int i = random.Index(m);
            int j = random.Index(m);
            while (j == i && m >= 2)
                j = random.Index(m);
            std::swap(list[i], list[j]);
            last_edge_moved = i == m || j == m;
        }
        if (last_edge_moved) {
            if (LastEdgesReachEnd(lists)) return PermuteOutcome::kFound;
            continue;
        }
        if (rounds >= kMaximumRounds) return PermuteOutcome::kGaveUp;
        if (rounds % kQuestionRounds == 0 &&
            !callbacks.ask_yes_no("No Surrogate Found During" + IntegerText(rounds) + " Permutations - Continue?")) {
            return PermuteOutcome::kCancelled;
        }
    }
}

void PermuteEdgeListsUniformly(EdgeLists& lists, RandomGenerator& random) {
    const int vertices = VertexCount(lists);
    const int end = lists[0][kEndSlot];
    // A vertex without edges is never entered (only the end vertex can have none), so it counts as
    // already joined to the tree.
    std::vector<char> in_tree(lists.size(), 0);
    for (int v = 1; v <= vertices; ++v)
        in_tree[v] = v == end || EdgeCount(lists[v]) < 1;
    std::vector<int> last_slot(lists.size(), 0);
    for (int v = 1; v <= vertices; ++v) {
        // Random walk until the tree is hit; a revisited vertex overwrites its choice, which erases
        // the loop.
        for (int u = v; !in_tree[u]; u = lists[u][last_slot[u]])
            last_slot[u] = random.Index(EdgeCount(lists[u]));
        for (int u = v; !in_tree[u]; u = lists[u][last_slot[u]])
            in_tree[u] = 1;
    }
    for (int v = 1; v <= vertices; ++v) {
        EdgeList& list = lists[v];
        const int d = EdgeCount(list);
        if (v == end) {
            ShuffleSlots(list, d, random);
        } else if (d >= 1) {
            std::swap(list[last_slot[v]], list[d]);
            ShuffleSlots(list, d - 1, random);
        }
    }
}

}  // namespace tessarin
