#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "distance/distance_matrix.h"
#include "session/progress.h"

namespace tessarin {

// How the distances from a joined cluster are updated (the menu command uses single linkage).
inline constexpr int kSingleLinkage = 0;       // the smaller of its two members' distances
inline constexpr int kSubtractiveLinkage = 1;  // every entry >= the join's distance is reduced by it
// Any other mode leaves the matrix as it is.

struct TreeNode {
    int matrix_index = 0;  // the row and column of the distance matrix that stand for this cluster
    std::string name;
    int parent = 0;  // 0 while it has none
    std::vector<int> children;
    float distance = 0;  // a join's: the distance at which its two clusters were joined
};

// Node 0 is the root ("Root", one child), nodes 1..n the leaves (text i is node i, named by
// `names`), nodes n+1, n+2, ... the joins in the order made ("node 1", "node 2", ...).
using ClusterTree = std::vector<TreeNode>;

// Joins the two closest active clusters until one is left. The scan takes the pair (a, b),
// b < a, of positions in the active list whose entry is strictly below the best so far; so on
// equal distances the smallest a wins, and for it the smallest b. The join's children are the
// cluster at a, then the one at b, and it takes b's place and matrix index. `matrix` is
// rewritten by `mode` after every join. Nothing when `progress` answers that the user cancelled.
std::optional<ClusterTree> BuildClusterTree(DistanceMatrix matrix, std::span<const std::string> names, int mode,
                                            const ProgressFn& progress);

// "parent -> child" for every node in number order and its children in order: the root's edge
// first, then the joins in the order made.
std::vector<std::string> TreeEdgeLines(const ClusterTree& tree);

// The tree drawn as indented text: "Root", then the nodes below it from DrawNode.
std::vector<std::string> DrawTree(const ClusterTree& tree);

// Appends `prefix`, " |__" and the node's name, then the lines of its children, whose prefix is
// extended by `extension`: a bar carries down the column of a node that has later siblings.
void DrawNode(const ClusterTree& tree, int node, const std::string& prefix, const std::string& extension,
              std::vector<std::string>& lines);

}  // namespace tessarin
