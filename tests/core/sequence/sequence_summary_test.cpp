#include "sequence/sequence_summary.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

using testing::ScriptedHost;
using testing::TempFolder;

class SequenceSummaryTest : public ::testing::Test {
  protected:
    TempFolder folder_;
    ScriptedHost host_;
    Session session_{host_, folder_.Folder()};

    std::vector<std::string> Report(const std::string& text) {
        host_.lines.clear();
        session_.log() = LogTarget{"summary.log", folder_.Folder()};
        SequenceSummary(session_, text, true);
        return host_.lines;
    }
};

TEST_F(SequenceSummaryTest, ReportsLengthAlphabetAndEntropyOnWindowAndLog) {
    EXPECT_EQ(Report("AABB"), (std::vector<std::string>{"Sequence Length = 4", "Alphabet Size = 2 letters",
                                                        "Alphabet: AB", "", "Entropy H1 = - Sum P*Log(P) = 1"}));
    EXPECT_EQ(folder_.Read("summary.log"),
              "Sequence Length = 4\r\nAlphabet Size = 2 letters\r\nAlphabet: AB\r\n\r\n"
              "Entropy H1 = - Sum P*Log(P) = 1\r\n");
}

TEST_F(SequenceSummaryTest, EntropyInSinglePrecisionAndUnitsOfTheAlphabet) {
    EXPECT_EQ(Report("AABC").back(), "Entropy H1 = - Sum P*Log(P) = .9463946");
    EXPECT_EQ(Report("ACGTACGT").back(), "Entropy H1 = - Sum P*Log(P) = 1");
    EXPECT_EQ(Report("AAAA").back(), "Entropy H1 = - Sum P*Log(P) = 0");  // K = 1: base ln 2, p = 1
}

TEST_F(SequenceSummaryTest, EmptyTextReportsNothingAndKeepsThePreviousAlphabet) {
    SequenceSummary(session_, "GATTACA", false);
    EXPECT_EQ(Report(""), std::vector<std::string>{});
    EXPECT_EQ(session_.sequence().AlphabetSize(), 4);
    EXPECT_FALSE(folder_.Exists("summary.log"));
}

TEST(LogBaseTest, NaturalLogOfAlphabetSizeButAtLeastLn2) {
    EXPECT_DOUBLE_EQ(LogBase(4), std::log(4.0));
    EXPECT_DOUBLE_EQ(LogBase(1), std::log(2.0));
    EXPECT_DOUBLE_EQ(LogBase(0), std::log(2.0));
}

}  // namespace
}  // namespace tessarin
