#pragma once

#include <span>
#include <string>

#include "distance/cluster_tree.h"
#include "distance/distance_matrix.h"

namespace tessarin {

// The tree in Newick format, for other phylogeny tools: leaves by name (single-quoted, inner quotes
// doubled, when a name holds blanks, brackets, parentheses, commas, colons, semicolons or quotes),
// joins unnamed; a join made at distance d stands at height d / 2 and a branch is as long as its
// parent's height minus its own, never below 0. Ends with ";" and a line feed.
std::string NewickText(const ClusterTree& tree);

// The distances as a square PHYLIP matrix: the count, then per text its name (padded to at least
// 10 characters) and its n distances with 6 decimals.
std::string PhylipText(const DistanceMatrix& matrix, std::span<const std::string> names);

// The distances as a tab-separated table (TsvTable) with a header row of the names.
std::string TsvText(const DistanceMatrix& matrix, std::span<const std::string> names);

}  // namespace tessarin
