#include "distance/distance_tree.h"

#include <gtest/gtest.h>

#include "core/distance/distance_session.h"

namespace tessarin {
namespace {

class DistanceTreeTest : public testing::DistanceSessionTest {
  protected:
    Outcome Run(const std::string& picked, TreeParams params = {}) {
        params.file = Data(picked);
        return RunCommand(session_, [&params](Session& s) { return RunDistanceTree(s, params); });
    }
};

struct FolderCase {
    const char* folder;
    const char* picked;
    int threads;
    const char* fault;
};

class DistanceTreeReportTest : public DistanceTreeTest, public ::testing::WithParamInterface<FolderCase> {};

// Compares the whole log and the main window with the expected files of the folder.
TEST_P(DistanceTreeReportTest, ReportMatchesExpectedFiles) {
    const FolderCase& c = GetParam();
    CopyTestFolder(c.folder);
    root_.Write("data/other.dat", "ACGT\r\n");
    session_.SetThreads(c.threads);
    EXPECT_EQ(Run(c.picked), Outcome::kCompleted) << c.fault;
    EXPECT_EQ(Masked(Data("Similar.log")), Masked(Expected(std::string("similar_") + c.folder + ".log"))) << c.fault;
    std::string window;
    for (const std::string& line : host_.lines)
        window += line.rfind("Time needed =", 0) == 0 ? "Time needed = {SECONDS} sec\n" : line + "\n";
    EXPECT_EQ(window, Masked(Expected(std::string("similar_") + c.folder + ".out"))) << c.fault;
    EXPECT_EQ(host_.shown, std::vector<std::string>{Data("Similar.log")}) << c.fault;
}

INSTANTIATE_TEST_SUITE_P(
    Folders, DistanceTreeReportTest,
    ::testing::Values(FolderCase{"folder2", "second.txt", 1, "two files: one distance, one join, no violation"},
                      FolderCase{"folder3", "other.txt", 2,
                                 "identical files (a negative distance that violates the triangle inequality even "
                                 "against itself) or names of different lengths mishandled"},
                      FolderCase{"folder12", "seq5.txt", 1, "files not taken in name order, or a wrong tree"},
                      FolderCase{"folder12", "seq1.txt", 4, "a report that depends on the thread count"}));

// Catches a triangle check that changes the matrix, misses a triple or names it in another order.
TEST_F(DistanceTreeTest, PlantedTriangleViolationIsReportedForEachTriple) {
    DistanceMatrix matrix(3);
    matrix(2, 1) = matrix(1, 2) = matrix(3, 2) = matrix(2, 3) = 0.1F;
    matrix(3, 1) = matrix(1, 3) = 0.5F;
    session_.log() = LogTarget{"matrix.log", Data("")};
    ReportDistanceMatrix(session_, {"a", "b", "c"}, matrix);
    EXPECT_EQ(host_.lines,
              (std::vector<std::string>{"", "Triangle Inequality Violation", "d( a, c ) > d( a, b ) + d( b, c )", "",
                                        "Triangle Inequality Violation", "d( c, a ) > d( c, b ) + d( b, a )"}));
    EXPECT_EQ(Lines(Masked(Data("matrix.log"))).back(), "");
    EXPECT_EQ(Lines(Masked(Data("matrix.log"))).end()[-2], "c  0.500 0.100 c");
}

// Catches a log written, a tree built or the log shown after a cancel during the complexities,
// on one thread or several.
TEST_F(DistanceTreeTest, CancelDuringComplexitiesLeavesNoLog) {
    CopyTestFolder("folder12");
    for (const int threads : {1, 2}) {
        session_.SetThreads(threads);
        // Only the calling thread reports progress, and on a busy machine the helper can take
        // every job before it reports a second one: with two threads the cancel comes at the
        // report made before any job starts.
        host_.AbortAt(session_, "seq", threads == 1 ? 3 : 1);
        EXPECT_EQ(Run("seq1.txt"), Outcome::kCancelled) << threads;
        EXPECT_FALSE(root_.Exists("data/Similar.log")) << threads;
        EXPECT_TRUE(host_.shown.empty()) << threads;
        EXPECT_EQ(host_.lines.end()[-2], "Sequence 12 \tseq9.txt") << threads;
        EXPECT_EQ(host_.lines.back(), "User Abort") << threads;
    }
}

// Catches the tree written, the log shown or extra outputs written after a cancel during the clustering.
TEST_F(DistanceTreeTest, CancelDuringClusteringKeepsTheMatrixReportUnshown) {
    CopyTestFolder("folder3");
    host_.AbortAt(session_, "Cluster Tree", 1);
    TreeParams params;
    params.newick = Data("tree.nwk");
    EXPECT_EQ(Run("other.txt", params), Outcome::kCancelled);
    EXPECT_EQ(Lines(Masked(Data("Similar.log"))).end()[-2], "twin_b  0.808 -0.100 twin_b");
    EXPECT_TRUE(host_.shown.empty());
    EXPECT_FALSE(root_.Exists("data/tree.nwk"));
}

// Catches files of another extension compared, and a refusal that is not silent on the desktop
// or that the command line cannot explain.
TEST_F(DistanceTreeTest, FewerThanTwoMatchingFilesAreRefused) {
    root_.Write("data/x.txt", "ACGT\r\n");
    root_.Write("data/y.dat", "ACGT\r\n");
    EXPECT_EQ(Run("x.txt"), Outcome::kRefused);
    EXPECT_TRUE(host_.messages.empty());
    EXPECT_TRUE(host_.lines.empty());
    TreeParams params;
    params.explain_refusal = true;
    EXPECT_EQ(Run("x.txt", params), Outcome::kRefused);
    EXPECT_EQ(host_.messages, std::vector<std::string>{"fewer than two matching files: " + Data("*.txt")});
}

// Catches extra outputs not written or written from the matrix as the clustering rewrote it, a
// negative branch length, and the wrong state left behind (file 1 current, the last pair measured
// as its text).
TEST_F(DistanceTreeTest, WritesTheExtraOutputsAndLeavesFileOneCurrent) {
    CopyTestFolder("folder3");
    TreeParams params{Data("other.txt"), Data("tree.nwk"), Data("matrix.phy"), Data("matrix.tsv")};
    EXPECT_EQ(Run("other.txt", params), Outcome::kCompleted);
    EXPECT_EQ(root_.Read("data/tree.nwk"), "((twin_b:0,twin_a:0):0.45384616,other:0.40384614);\n");
    EXPECT_NE(root_.Read("data/matrix.tsv").find("\ntwin_b\t0.8076923\t-0.1\t0\n"), std::string::npos);
    EXPECT_TRUE(root_.Exists("data/matrix.phy"));
    EXPECT_EQ(session_.sequence().file_name, "other.txt");
    const std::string twin = "BAAABAABAAAABBABBABBBBBBA";
    EXPECT_EQ(session_.sequence().text, twin + twin);
}

}  // namespace
}  // namespace tessarin
