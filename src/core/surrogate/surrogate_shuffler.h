#pragma once

#include <cstdint>
#include <vector>

#include "session/random_generator.h"
#include "surrogate/edge_lists.h"
#include "surrogate/permute_edge_lists.h"
#include "surrogate/surrogate_options.h"
#include "surrogate/walk_edge_lists.h"

namespace tessarin {

// One surrogate and how its making went.
struct SurrogateDraw {
    std::vector<std::int32_t> sequence;  // positions 1..L (index 0 unused)
    PermuteOutcome permute = PermuteOutcome::kFound;
    WalkOutcome walk = WalkOutcome::kComplete;
    bool pairs_verified = true;  // pair level: the pair counts are those of the original
};

// Draws the surrogates of one run one after another. The lists (or the working copy of the
// sequence) are built once, and every surrogate starts from the order the previous one left, so
// a run must draw all its surrogates from one shuffler.
class SurrogateShuffler {
  public:
    // `original` holds symbols 1..alphabet_size at positions 1..L (index 0 ignored). Without
    // `uniform`, a pair or triple level whose first vertex has no edge is refused
    // (SurrogateRefusal): the exchanges that make the surrogates all happen in that vertex's list.
    SurrogateShuffler(std::vector<std::int32_t> original, int alphabet_size, Preserve preserve, bool uniform);

    // Pairs: reorder, walk, verify; triples: reorder, walk; symbols: L exchanges on the working
    // copy (a uniform shuffle with `uniform`). After a cancelled or failed reordering the walk
    // still runs on the lists as they stand.
    SurrogateDraw Next(RandomGenerator& random, const ShuffleCallbacks& callbacks);

  private:
    PermuteOutcome Permute(RandomGenerator& random, const ShuffleCallbacks& callbacks);

    std::vector<std::int32_t> original_;
    int alphabet_size_;
    Preserve preserve_;
    bool uniform_;
    EdgeLists lists_;
    PairWords pair_words_;
    std::vector<std::int32_t> working_;  // symbol level: the surrogate so far
};

}  // namespace tessarin
