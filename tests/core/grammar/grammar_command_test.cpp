#include "grammar/grammar_command.h"

#include <gtest/gtest.h>

#include "grammar/grammar.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

class GrammarCommandTest : public ::testing::Test {
  protected:
    testing::TempFolder folder_;
    testing::ScriptedHost host_;
    Session session_{host_, folder_.Folder()};
    double now_ = 100;

    void SetUp() override {
        session_.SetClock([this] { return now_ += 0.25; });
    }
    Outcome Run(const std::string& name, const std::string& text, int options) {
        folder_.Write(name, text);
        host_.files.push_back(FileChoice{folder_.Folder(), name});
        return RunCommand(session_, [&](Session& s) { return RunGrammarComplexity(s, kNvogram, options); });
    }
};

// Catches a single-file run without verification or report, or without its final note.
TEST_F(GrammarCommandTest, SingleFileRunsWithReportAndEndsWithTheTimeNeeded) {
    EXPECT_EQ(Run("ab.txt", "ABABAB", kGrammarOptionsConfirmed), Outcome::kCompleted);
    ASSERT_FALSE(host_.lines.empty());
    EXPECT_EQ(host_.lines.front(), "Compute Grammar Complexity  - Press any key to cancel");
    EXPECT_EQ(host_.lines[host_.lines.size() - 2], "Pass 1: Rule Length = 5");
    EXPECT_EQ(host_.lines.back().rfind("Time needed =", 0), 0U);
    EXPECT_EQ(host_.shown, (std::vector<std::string>{"Input Sequence: ab.txt", folder_.Path("ab.log")}));
}

// Catches the folder scope bit ignored, and a final note added to the folder run.
TEST_F(GrammarCommandTest, AllFilesOptionRunsTheFolder) {
    EXPECT_EQ(Run("ab.txt", "ABABAB", kGrammarOptionsConfirmed | kGrammarOptionsAllFiles), Outcome::kCompleted);
    EXPECT_EQ(host_.lines.back(), "Root Mean Square = 0");
    EXPECT_TRUE(folder_.Exists("Statistics.log"));
    EXPECT_FALSE(folder_.Exists("ab.log"));
}

// Catches a run on an empty or unchosen file.
TEST_F(GrammarCommandTest, EmptyFileIsRefused) {
    EXPECT_EQ(Run("empty.txt", "\r\n", kGrammarOptionsConfirmed), Outcome::kRefused);
    EXPECT_TRUE(host_.lines.empty());
}

// Catches a cancelled run reported as completed or ended with a time.
TEST_F(GrammarCommandTest, AbortEndsWithUserAbort) {
    folder_.Write("ab.txt", "ABABAB");
    host_.files.push_back(FileChoice{folder_.Folder(), "ab.txt"});
    const Outcome outcome = RunCommand(session_, [](Session& s) {
        s.RequestAbort();
        return RunGrammarComplexity(s, kNvogram, kGrammarOptionsConfirmed);
    });
    EXPECT_EQ(outcome, Outcome::kCancelled);
    EXPECT_EQ(host_.lines.back(), "User Abort");
    EXPECT_FALSE(session_.Aborted());
}

}  // namespace
}  // namespace tessarin
