#include "sequence/sequence_summary.h"

#include <gtest/gtest.h>

#include <cmath>

#include "logfile/number_text.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

struct EntropyCase {
    const char* fault;
    const char* text;
    const char* entropy;  // as the report shows it
};

class SequenceEntropyTest : public ::testing::TestWithParam<EntropyCase> {};

TEST_P(SequenceEntropyTest, H1InSinglePrecisionAndUnitsOfTheAlphabet) {
    EXPECT_EQ(SingleText(SummarizeSequence(GetParam().text).entropy), GetParam().entropy) << GetParam().fault;
}

INSTANTIATE_TEST_SUITE_P(Texts, SequenceEntropyTest,
                         ::testing::Values(EntropyCase{"not divided by ln K", "ACGTACGT", " 1"},
                                           EntropyCase{"a base other than ln 2 for one letter", "AAAA", " 0"},
                                           EntropyCase{"sums not rounded to single precision", "AABC", " .9463946"}));

class SequenceSummaryReportTest : public ::testing::Test {
  protected:
    testing::TempFolder folder_;
    testing::ScriptedHost host_;
    Session session_{host_, folder_.Folder()};
};

// Catches a line missing from the window or the log, a wrong label, or the alphabet not set.
TEST_F(SequenceSummaryReportTest, ReportsOnWindowAndLogAndSetsTheAlphabet) {
    session_.log() = LogTarget{"summary.log", folder_.Folder()};
    session_.sequence().text = "BBAA";
    SetAlphabetAndReport(session_);
    EXPECT_EQ(host_.lines, (std::vector<std::string>{"Sequence Length = 4", "Alphabet Size = 2 letters", "Alphabet: AB",
                                                     "", "Entropy H1 = - Sum P*Log(P) = 1"}));
    EXPECT_EQ(folder_.Read("summary.log"),
              "Sequence Length = 4\r\nAlphabet Size = 2 letters\r\nAlphabet: AB\r\n\r\n"
              "Entropy H1 = - Sum P*Log(P) = 1\r\n");
    EXPECT_EQ(session_.sequence().AlphabetSize(), 2);
}

// Catches an empty text reported or clearing the alphabet in force.
TEST_F(SequenceSummaryReportTest, EmptyTextReportsNothingAndKeepsTheAlphabet) {
    session_.sequence().alphabet = BuildAlphabet("GATTACA");
    SetAlphabetAndReport(session_);
    EXPECT_TRUE(host_.lines.empty());
    EXPECT_EQ(session_.sequence().AlphabetSize(), 4);
}

TEST(LogBaseTest, NaturalLogOfAlphabetSizeButAtLeastLn2) {
    EXPECT_DOUBLE_EQ(LogBase(4), std::log(4.0));
    EXPECT_DOUBLE_EQ(LogBase(1), std::log(2.0));
}

}  // namespace
}  // namespace tessarin
