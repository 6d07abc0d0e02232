#include "distance/algorithmic_distance.h"

#include <gtest/gtest.h>

#include "core/distance/distance_session.h"

namespace tessarin {
namespace {

class AlgorithmicDistanceTest : public testing::DistanceSessionTest {
  protected:
    // K(ABBBAB) = 6, K(BBBA) = 4, K(xy) = 9 and K(yx) = 8: the two concatenations differ.
    Outcome Run(const std::string& first = "ABBBAB", const std::string& second = "BBBA") {
        root_.Write("data/first.txt", first + "\r\n");
        root_.Write("data/second.txt", second + "\r\n");
        const DistanceParams params{Data("first.txt"), Data("second.txt")};
        return RunCommand(session_, [&params](Session& s) { return RunAlgorithmicDistance(s, params); });
    }
    // The log lies beside the program folder: "<root>/program" and the name joined with nothing between.
    std::vector<std::string> Log(const std::string& name = "programdistance.log") const {
        return Lines(Masked(root_.Path(name)));
    }
};

// Catches any change of wording, number text, blank or order in the report or on the main window.
TEST_F(AlgorithmicDistanceTest, ReportMatchesExpectedFile) {
    EXPECT_EQ(Run(), Outcome::kCompleted);
    EXPECT_EQ(Masked(root_.Path("programdistance.log")), Masked(Expected("distance.log")));
    std::vector<std::string> window{"Compute Algorithmic Distance  - Press any key to cancel", ""};
    const std::vector<std::string> log = Log();
    window.insert(window.end(), log.begin() + 9, log.end());
    EXPECT_EQ(std::vector<std::string>(host_.lines.begin(), host_.lines.end() - 1), window);
}

// Catches the log written inside the program folder or over an earlier one, a separator between
// the texts or their orders swapped (AC and GT give ACGT, then GTAC, which stays current with the
// second file's name), and a relative distance divided by a zero K(xy) + K(yx).
TEST_F(AlgorithmicDistanceTest, LogsBesideTheProgramFolderConcatenatePlainlyAndSkipAZeroDivisor) {
    Run();
    const std::vector<std::string> first_log = Log();
    Run("AC", "GT");
    EXPECT_EQ(Log(), first_log);
    EXPECT_FALSE(root_.Exists("program/distance.log"));
    EXPECT_EQ(host_.shown.back(), root_.Path("programdistance_1.log"));
    EXPECT_EQ(session_.sequence().text, "GTAC");
    EXPECT_EQ(session_.sequence().file_name, "second.txt");
    Run("A", "");
    EXPECT_EQ(Log("programdistance_2.log").back(), "Algorithmic Distance D(x,y) = K(x|y) + K(y|x) = 0");
}

struct CancelCase {
    const char* caption;  // the abort is requested when a caption starting with it is first shown
    std::size_t lines;    // the log's lines, "User Abort" the last
    const char* last_value;
    const char* fault;
};

class DistanceCancelTest : public AlgorithmicDistanceTest, public ::testing::WithParamInterface<CancelCase> {};

TEST_P(DistanceCancelTest, CancelIsSeenAfterKxAfterKyAndAtTheEnd) {
    const CancelCase& c = GetParam();
    host_.AbortAt(session_, c.caption, 1);
    EXPECT_EQ(Run(), Outcome::kCancelled) << c.fault;
    const std::vector<std::string> log = Log();
    ASSERT_EQ(log.size(), c.lines) << c.fault;
    EXPECT_EQ(log[log.size() - 2], c.last_value) << c.fault;
    EXPECT_EQ(log.back(), "User Abort") << c.fault;
    EXPECT_EQ(host_.shown.back(), root_.Path("programdistance.log")) << c.fault;
}

INSTANTIATE_TEST_SUITE_P(
    Steps, DistanceCancelTest,
    ::testing::Values(CancelCase{"first:", 11, "Sequence 1: Grammatical Complexity K(x) = 0",
                                 "K(y) computed after a cancel during K(x)"},
                      CancelCase{"second:", 12, "Sequence 2: Grammatical Complexity K(y) = 0",
                                 "the concatenations measured after a cancel during K(y)"},
                      CancelCase{"Both:", 17, "Algorithmic Distance D(x,y) = K(x|y) + K(y|x) =-10",
                                 "a cancel during K(xy) that stops the report instead of letting it run on"}));

}  // namespace
}  // namespace tessarin
