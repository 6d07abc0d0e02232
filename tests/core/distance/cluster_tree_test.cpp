#include "distance/cluster_tree.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

// A tree of the leaves A, B, C, ... from the lower triangle of a distance matrix, row by row.
ClusterTree Tree(int n, const std::vector<float>& lower, int mode = kSingleLinkage) {
    DistanceMatrix matrix(n);
    for (int i = 2, next = 0; i <= n; ++i) {
        for (int j = 1; j < i; ++j, ++next)
            matrix(i, j) = matrix(j, i) = lower[static_cast<std::size_t>(next)];
    }
    const std::vector<std::string> names{"A", "B", "C", "D"};
    return BuildClusterTree(matrix, std::span(names).first(static_cast<std::size_t>(n)), mode, NoProgress).value();
}

// The example of three files whose first join takes A and B (met at positions 2 and 1), the
// second C and node 1 (at positions 2 and 1). Catches children out of scan order, the join not
// taking b's place, edges out of node order, and a layout without the right indents.
TEST(ClusterTree, ThreeFileExample) {
    const ClusterTree tree = Tree(3, {0.1F, 0.5F, 0.6F});
    EXPECT_EQ(TreeEdgeLines(tree), (std::vector<std::string>{"Root -> node 2", "node 1 -> B", "node 1 -> A",
                                                             "node 2 -> C", "node 2 -> node 1"}));
    EXPECT_EQ(DrawTree(tree), (std::vector<std::string>{"Root", " |__node 2", "     |__C", "     |__node 1",
                                                        "         |__B", "         |__A"}));
}

// Catches a tie that replaces the best pair (<= instead of <) or a scan from the other end.
TEST(ClusterTree, EqualDistancesJoinThePairMetFirst) {
    EXPECT_EQ(TreeEdgeLines(Tree(4, std::vector<float>(6, 0.5F))),
              (std::vector<std::string>{"Root -> node 3", "node 1 -> B", "node 1 -> A", "node 2 -> C",
                                        "node 2 -> node 1", "node 3 -> D", "node 3 -> node 2"}));
}

// A and B join at .1; C's distance to the join (kept at A's index) is then .6 to A and .5 to B.
struct ModeCase {
    int mode;
    float second_join;
    const char* fault;
};

class LinkageModeTest : public ::testing::TestWithParam<ModeCase> {};

TEST_P(LinkageModeTest, UpdateDecidesTheNextJoinDistance) {
    const ClusterTree tree = Tree(3, {0.1F, 0.6F, 0.5F}, GetParam().mode);
    EXPECT_EQ(tree[4].distance, 0.1F);
    EXPECT_EQ(tree[5].distance, GetParam().second_join) << GetParam().fault;
}

INSTANTIATE_TEST_SUITE_P(Modes, LinkageModeTest,
                         ::testing::Values(ModeCase{kSingleLinkage, 0.5F, "the larger member distance kept"},
                                           ModeCase{kSubtractiveLinkage, 0.6F - 0.1F,
                                                    "entries not reduced by the join's distance in single precision"},
                                           ModeCase{7, 0.6F, "an update made in a mode that has none"}));

}  // namespace
}  // namespace tessarin
