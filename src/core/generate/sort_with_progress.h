#pragma once

#include <vector>

#include "session/progress.h"

namespace tessarin {

// Sorts ascending, reporting "Sorting.." with the fraction done; answers false when the user
// cancels (the values are then left in some order). Blocks are sorted one at a time and then
// merged pairwise, so the sort stays O(N log N) and still reaches the progress callback often.
bool SortWithProgress(std::vector<float>& values, const ProgressFn& progress);

}  // namespace tessarin
