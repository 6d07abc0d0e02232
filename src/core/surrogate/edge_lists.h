#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <vector>

namespace tessarin {

// The successors of one vertex: slots 1..d hold the vertices that follow it, in the order they are
// used; slot 0 is a working counter (fill counter while building, cumulative count while
// reordering, read cursor while walking) that carries over from one use to the next.
using EdgeList = std::vector<std::int32_t>;

// Entry 0 is {counter, start vertex, end vertex}; entries 1..N are the vertices' lists. At pair
// level the vertices are the symbols 1..K, at triple level the distinct neighbour pairs.
using EdgeLists = std::vector<EdgeList>;

inline constexpr int kStartSlot = 1;
inline constexpr int kEndSlot = 2;

// The two symbols of a pair vertex.
struct PairWord {
    std::int32_t first = 0;
    std::int32_t second = 0;
};

// Entries 1..P are the pair vertices; entry 0 is unused.
using PairWords = std::vector<PairWord>;

struct TripleLists {
    EdgeLists edge_lists;
    PairWords pair_words;
};

// A sequence whose pairs or triples cannot be shuffled; the message says why and what to choose.
class SurrogateRefusal : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The number of edges d of a list.
inline int EdgeCount(const EdgeList& list) {
    return static_cast<int>(list.size()) - 1;
}

// The pair-level lists of `coded` (symbols 1..alphabet_size at positions 1..L, index 0 ignored):
// vertex v lists the symbol after each occurrence of v at positions 1..L-1.
EdgeLists BuildPairLists(std::span<const std::int32_t> coded, int alphabet_size);

// The triple-level lists: pair vertices numbered in (first, second) order; vertex k lists the
// pair that follows each occurrence of pair k at positions 1..L-2. Needs L >= 2.
TripleLists BuildTripleLists(std::span<const std::int32_t> coded, int alphabet_size);

}  // namespace tessarin
