#include "surrogate/surrogate_statistics.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "grammar/grammar_complexity.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "surrogate/surrogate_files.h"
#include "surrogate_session.h"

namespace tessarin {
namespace {

using testing::ReadTestData;

class SurrogateStatisticsTest : public testing::SurrogateSessionTest {
  protected:
    SurrogateParams FullParams(Preserve preserve, int count) const {
        SurrogateParams params = ParamsFor("dna.txt", preserve, count);
        params.entropy = true;
        params.exceptional = true;
        params.max_length = 5;
        return params;
    }
};

// The whole report, byte for byte: header, complexities, their statistics, the entropy
// comparisons and the exceptional words; and the main window holds the same lines from the file
// name on, after the start lines and before the final note.
TEST_F(SurrogateStatisticsTest, ReportOfASeededPairEnsembleMatchesTheExpectedLog) {
    EXPECT_EQ(RunSurrogateStatistics(session_, FullParams(Preserve::kPairs, 6)), Outcome::kCompleted);
    EXPECT_EQ(Masked(folder_.Read("dna_set.log")), ReadTestData("ensemble_pairs_dna.log"));
    const std::vector<std::string> log = Lines("dna_set.log");
    std::vector<std::string> expected{"Compute Surrogate Ensemble  - Press any key to cancel",
                                      "Sequence " + folder_.Folder() + "dna.txt", "Surrogates: 6",
                                      "Preserve: Pairs and Symbols", ""};
    expected.insert(expected.end(), log.begin() + 6, log.end());
    ASSERT_FALSE(host_.lines.empty());
    EXPECT_EQ(host_.lines.back().rfind("Time needed =", 0), 0U);
    host_.lines.pop_back();
    EXPECT_EQ(host_.lines, expected);
}

// Catches results combined in completion order or sums that depend on how the work was split.
TEST_F(SurrogateStatisticsTest, ManyThreadsGiveTheReportOfOne) {
    SurrogateParams params = FullParams(Preserve::kTriples, 14);
    params.uniform = true;
    ASSERT_EQ(RunSurrogateStatistics(session_, params), Outcome::kCompleted);
    session_.random().Seed(2024);
    session_.SetThreads(3);
    ASSERT_EQ(RunSurrogateStatistics(session_, params), Outcome::kCompleted);
    const std::string one = Masked(folder_.Read("dna_set.log"));
    EXPECT_EQ(Masked(folder_.Read("dna_set_1.log")), one);
    EXPECT_NE(one.find(" 14. Surrogate"), std::string::npos);  // two batches of three threads
}

// With one seed the file run writes the very surrogates the ensemble run measures: each file's
// complexity is the one the ensemble reports for that surrogate.
TEST_F(SurrogateStatisticsTest, TheFileRunWritesTheSurrogatesTheEnsembleMeasures) {
    const SurrogateParams params = ParamsFor("dna.txt", Preserve::kTriples, 4);
    ASSERT_EQ(RunSurrogateStatistics(session_, params), Outcome::kCompleted);
    session_.random().Seed(2024);
    ASSERT_EQ(RunMakeSurrogateFiles(session_, params), Outcome::kCompleted);
    const std::vector<std::string> log = Lines("dna_set.log");
    for (int i = 1; i <= 4; ++i) {
        const std::string text = ReadTextFile(folder_.Path("dna_" + std::to_string(i) + ".txt"));
        const std::optional<float> complexity = GrammarComplexityOfText(text, Method::kNvogram, NoProgress);
        ASSERT_TRUE(complexity);
        EXPECT_EQ(log[8 + i], " " + std::to_string(i) + ". Surrogate\t C  =" + SingleText(*complexity));
    }
}

// A cancel during the third surrogate's complexity: the two surrogates before it make the
// statistics, nothing is listed of the third, and the main window ends with "User Abort".
TEST_F(SurrogateStatisticsTest, ACancelKeepsTheStatisticsOfTheSurrogatesMadeBeforeIt) {
    host_.abort_caption = "#3";
    SurrogateParams params = ParamsFor("dna.txt", Preserve::kSymbols, 5);
    EXPECT_EQ(RunSurrogateStatistics(session_, params), Outcome::kCancelled);
    const std::vector<std::string> log = Lines("dna_set.log");
    ASSERT_EQ(log.size(), 16U);
    EXPECT_EQ(log[10].rfind(" 2. Surrogate", 0), 0U);
    EXPECT_EQ(log[12].rfind("Average Surrogate Complexity  <C> =", 0), 0U);
    EXPECT_EQ(host_.lines.back(), "User Abort");
}

// The exchanges of the default shuffle all happen in the first vertex's list; a first letter
// that only ends the sequence has none, so the run is refused after its header.
TEST_F(SurrogateStatisticsTest, AFirstLetterThatOnlyEndsTheSequenceIsRefused) {
    folder_.Write("end.txt", "BCBCA");
    SurrogateParams params = ParamsFor("dna.txt", Preserve::kPairs, 3);
    params.input = folder_.Path("end.txt");
    EXPECT_EQ(RunSurrogateStatistics(session_, params), Outcome::kRefused);
    EXPECT_EQ(Lines("end_set.log").size(), 6U);
    ASSERT_EQ(host_.messages.size(), 1U);
    EXPECT_NE(host_.messages[0].find("\"Only Symbols\""), std::string::npos);
}

}  // namespace
}  // namespace tessarin
