#include "distance/cluster_tree.h"

#include <algorithm>

#include "logfile/number_text.h"

namespace tessarin {
namespace {

constexpr float kNoDistance = 1e38F;
constexpr const char* kLastChildExtension = "    ";
constexpr const char* kChildExtension = " |  ";

void UpdateDistances(DistanceMatrix& matrix, int mode, int ra, int rb, float best) {
    const int n = matrix.size();
    if (mode == kSingleLinkage) {
        // Every row is touched, the diagonal and rows no longer in use included; those are never read again.
        for (int k = 1; k <= n; ++k) {
            if (matrix(k, ra) < matrix(k, rb)) matrix(k, rb) = matrix(k, ra);
            matrix(rb, k) = matrix(k, rb);
        }
    } else if (mode == kSubtractiveLinkage) {
        for (int k = 1; k <= n; ++k) {
            for (int j = 1; j <= n; ++j) {
                if (matrix(k, j) >= best) matrix(k, j) = matrix(k, j) - best;
            }
        }
    }
}

}  // namespace

std::optional<ClusterTree> BuildClusterTree(DistanceMatrix matrix, std::span<const std::string> names, int mode,
                                            const ProgressFn& progress) {
    const int n = matrix.size();
    ClusterTree tree(static_cast<std::size_t>(n) + 1);
    std::vector<int> active;
    for (int i = 1; i <= n; ++i) {
        tree[i].matrix_index = i;
        tree[i].name = names[i - 1];
        active.push_back(i);
    }
    const float joins = static_cast<float>(std::max(n - 1, 1));
    while (active.size() >= 2) {
        if (progress("Cluster Tree", static_cast<float>(tree.size() - n - 1) / joins)) return std::nullopt;
        float best = kNoDistance;
        // Positions in the active list, counted from 0; none found leaves them out of range.
        std::size_t a_best = active.size();
        std::size_t b_best = active.size();
        for (std::size_t a = 1; a < active.size(); ++a) {
            const int ra = tree[active[a]].matrix_index;
            for (std::size_t b = 0; b < a; ++b) {
                const float entry = matrix(ra, tree[active[b]].matrix_index);
                if (entry < best) {
                    best = entry;
                    a_best = a;
                    b_best = b;
                }
            }
        }
        const int na = active.at(a_best);
        const int nb = active.at(b_best);
        const int p = static_cast<int>(tree.size());
        TreeNode join;
        join.matrix_index = tree[nb].matrix_index;
        join.name = "node" + IntegerText(p - n);
        join.children = {na, nb};
        join.distance = best;
        tree.push_back(join);
        tree[na].parent = p;
        tree[nb].parent = p;
        active[b_best] = p;
        active.erase(active.begin() + static_cast<std::ptrdiff_t>(a_best));
        UpdateDistances(matrix, mode, tree[na].matrix_index, join.matrix_index, best);
    }
    progress("", 1);
    tree[0].name = "Root";
    if (!active.empty()) tree[0].children = {active.front()};
    return tree;
}

std::vector<std::string> TreeEdgeLines(const ClusterTree& tree) {
    std::vector<std::string> lines;
    for (const TreeNode& node : tree) {
        for (const int child : node.children)
            lines.push_back(node.name + " -> " + tree[child].name);
    }
    return lines;
}

std::vector<std::string> DrawTree(const ClusterTree& tree) {
    std::vector<std::string> lines{"Root"};
    for (const int child : tree[0].children)
        DrawNode(tree, child, "", kLastChildExtension, lines);
    return lines;
}

void DrawNode(const ClusterTree& tree, int node, const std::string& prefix, const std::string& extension,
              std::vector<std::string>& lines) {
    const TreeNode& record = tree[node];
    lines.push_back(prefix + " |__" + record.name);
    for (std::size_t c = 0; c < record.children.size(); ++c) {
        const bool last = c + 1 == record.children.size();
        DrawNode(tree, record.children[c], prefix + extension, last ? kLastChildExtension : kChildExtension, lines);
    }
}

}  // namespace tessarin
