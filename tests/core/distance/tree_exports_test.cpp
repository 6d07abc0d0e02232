#include "distance/tree_exports.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

namespace tessarin {
namespace {

// Reads a Newick tree back: every leaf's name with the sum of the branch lengths up to the top.
// Quoted names may hold any character, a quote doubled.
struct NewickReader {
    std::string text;
    std::size_t at = 0;
    std::map<std::string, double> depths;

    // Reads a clade and adds its branch length to the depths of its leaves, which it answers.
    std::vector<std::string> Clade() {
        std::vector<std::string> leaves;
        if (text[at] == '(') {
            do {
                ++at;
                const std::vector<std::string> inner = Clade();
                leaves.insert(leaves.end(), inner.begin(), inner.end());
            } while (text[at] == ',');
            EXPECT_EQ(text[at++], ')');
        } else if (text[at] != '\'') {
            const std::size_t end = text.find(':', at);
            leaves.push_back(text.substr(at, end - at));
            at = end;
        } else {
            std::string name;
            for (++at; !(text[at] == '\'' && text[at + 1] != '\''); ++at)
                name += text[text[at] == '\'' ? at++ : at];  // a doubled quote stands for one
            ++at;
            leaves.push_back(name);
        }
        if (text[at] == ':') {
            char* end = nullptr;
            const double length = std::strtod(text.c_str() + at + 1, &end);
            at = static_cast<std::size_t>(end - text.c_str());
            for (const std::string& leaf : leaves)
                depths[leaf] += length;
        }
        return leaves;
    }
};

ClusterTree Tree(int n, const std::vector<float>& lower, const std::vector<std::string>& names) {
    DistanceMatrix matrix(n);
    for (int i = 2, next = 0; i <= n; ++i) {
        for (int j = 1; j < i; ++j, ++next)
            matrix(i, j) = matrix(j, i) = lower[static_cast<std::size_t>(next)];
    }
    return BuildClusterTree(matrix, names, kSingleLinkage, NoProgress).value();
}

// Catches names that break the format or lose a quote, and branch lengths that do not add up to
// the join heights (half their distances): the joins stand at .05, .15 and .175 (C joins {A, B}
// at .3 through B, D joins at .35 through C), so every leaf lies .175 below the top.
TEST(NewickText, ReadsBackWithQuotedNamesAndLengthsAddingUpToTheJoinHeights) {
    const std::vector<std::string> names{"it's", "a b", "plain", "x:y(1)"};
    NewickReader reader{NewickText(Tree(4, {0.1F, 0.9F, 0.3F, 0.4F, 0.95F, 0.35F}, names)), 0, {}};
    EXPECT_EQ(reader.Clade().size(), 4U);
    EXPECT_EQ(reader.text.substr(reader.at), ";\n");
    EXPECT_NE(reader.text.find("(plain:"), std::string::npos);
    for (const std::string& name : names)
        EXPECT_NEAR(reader.depths[name], static_cast<double>(0.35F) / 2, 1e-6) << name;
}

// Catches rows or columns swapped, a missing count line, names not padded, PHYLIP decimals not
// fixed, or the TSV table rounded where the other tables keep every digit.
TEST(MatrixExports, PhylipAndTsvHoldTheWholeSquareMatrix) {
    DistanceMatrix matrix(2);
    matrix(1, 2) = matrix(2, 1) = -0.1F;
    EXPECT_EQ(PhylipText(matrix, std::vector<std::string>{"a", "long_name_x"}),
              "2\na           0.000000 -0.100000\nlong_name_x -0.100000 0.000000\n");
    EXPECT_EQ(TsvText(matrix, std::vector<std::string>{"a", "b"}), "\ta\tb\na\t0\t-0.1\nb\t-0.1\t0\n");
}

}  // namespace
}  // namespace tessarin
