#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "session/random_generator.h"
#include "surrogate/edge_lists.h"

namespace tessarin {

// What a reordering needs from its run while it searches.
struct ShuffleCallbacks {
    // Shows a status text ("Permutation: 1000") and answers whether the user has cancelled.
    std::function<bool(const std::string& status)> status;
    // Asks a Yes/No question and answers whether the user said Yes.
    std::function<bool(const std::string& question)> ask_yes_no;
};

enum class PermuteOutcome {
    kFound,      // the lists keep the last-edge rule: a walk uses every edge
    kCancelled,  // the user cancelled, or said No to going on
    kGaveUp,     // the round counter reached its maximum: "No Surrogate Found"
};

inline constexpr std::int64_t kMaximumRounds = 2147483647;

// Reorders vertex 1's list by random exchanges until, from every vertex, following last edges
// reaches the end vertex (the last-edge rule of the Altschul-Erickson shuffle), so that a walk
// uses every edge. Only vertex 1 is reordered, and slot 0 of the lists carries over from the
// previous walk into the exchange odds, both deliberately. `rounds` counts the rounds (a surrogate
// starts it at 0). Every 1000 rounds the status shows "Permutation:" and the count; every million
// rounds the user is asked whether to go on, unless the round tested the lists; at the 32-bit
// maximum the search gives up. Vertex 1 must have at least one edge.
PermuteOutcome PermuteEdgeLists(EdgeLists& lists, std::int64_t& rounds, RandomGenerator& random,
                                const ShuffleCallbacks& callbacks);

// Reorders every list so that each arrangement of the edges that keeps the last-edge rule is
// equally likely (Kandel et al. 1996): the last edges are drawn as a uniformly random
// arborescence towards the end vertex by Wilson's loop-erased random walks, the other edges of
// each vertex are shuffled uniformly. Every walk that keeps the counts is then equally likely.
void PermuteEdgeListsUniformly(EdgeLists& lists, RandomGenerator& random);

}  // namespace tessarin
