#include "grammar/grammar_command.h"

#include <gtest/gtest.h>

#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

class GrammarCommandTest : public ::testing::Test {
  protected:
    testing::TempFolder folder_;
    testing::ScriptedHost host_;
    Session session_{host_, folder_.Folder()};

    Outcome Run(const std::string& name, const std::string& text, bool abort = false) {
        folder_.Write(name, text);
        const GrammarParams params{Method::kNvogram, false, folder_.Path(name), {}};
        return RunCommand(session_, [&](Session& s) {
            if (abort) s.RequestAbort();
            return RunGrammarComplexity(s, params);
        });
    }
};

// Catches a single-file run without its report, or without its final note.
TEST_F(GrammarCommandTest, SingleFileRunsWithReportAndEndsWithTheTimeNeeded) {
    EXPECT_EQ(Run("ab.txt", "ABABAB"), Outcome::kCompleted);
    ASSERT_GE(host_.lines.size(), 2U);
    EXPECT_EQ(host_.lines[host_.lines.size() - 2], "Pass 1: Rule Length = 5");
    EXPECT_EQ(host_.lines.back().rfind("Time needed =", 0), 0U);
    EXPECT_EQ(host_.shown, (std::vector<std::string>{"Input Sequence: ab.txt", folder_.Path("ab.log")}));
}

// Catches a run on an empty or missing input.
TEST_F(GrammarCommandTest, EmptyOrMissingInputIsRefused) {
    EXPECT_EQ(Run("empty.txt", "\r\n"), Outcome::kRefused);
    EXPECT_EQ(RunGrammarComplexity(session_, GrammarParams{}), Outcome::kRefused);
    EXPECT_TRUE(host_.lines.empty());
}

// Catches a cancelled run reported as completed, ended with a time, or with its grammar reported.
TEST_F(GrammarCommandTest, AbortEndsWithUserAbort) {
    EXPECT_EQ(Run("ab.txt", "ABABAB", true), Outcome::kCancelled);
    EXPECT_EQ(host_.lines.back(), "User Abort");
    EXPECT_EQ(folder_.Read("ab.log").find("Grammar Rules Found:"), std::string::npos);
}

}  // namespace
}  // namespace tessarin
