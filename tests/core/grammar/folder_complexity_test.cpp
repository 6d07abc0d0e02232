#include "grammar/folder_complexity.h"

#include <gtest/gtest.h>

#include "grammar/grammar.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

// Requests the user abort when a caption starting with `caption` is shown for the n-th time.
class AbortingHost : public testing::ScriptedHost {
  public:
    Session* session = nullptr;
    std::string caption;
    int occurrence = 0;

    void ShowProgress(const std::string& text) override {
        ScriptedHost::ShowProgress(text);
        if (session != nullptr && text.rfind(caption, 0) == 0 && --occurrence == 0) session->RequestAbort();
    }
};

class FolderComplexityTest : public ::testing::Test {
  protected:
    testing::TempFolder folder_;
    AbortingHost host_;
    Session session_{host_, folder_.Folder()};
    double now_ = 0;

    void SetUp() override {
        // Every progress call updates the caption, so an abort can be aimed at one file.
        session_.SetClock([this] { return now_ += 1; });
        folder_.Write("a.txt", "ABCDEFGHIJ\r\n");            // no repeat: K = 10
        folder_.Write("b.txt", "ABCDEFGHIJKLMNOPQRST\r\n");  // K = 20
    }

    Outcome Run(const std::string& chosen) {
        host_.files.push_back(FileChoice{folder_.Folder(), chosen});
        return GrammarComplexityOfFolder(session_, kNvogram, kVerifyFlag);
    }
};

// Catches a wrong average or spread (the standard deviation under its old label), files out of
// name order, and a missing tab or number blank in the file lines.
TEST_F(FolderComplexityTest, ListsEachFileWithAverageAndSpread) {
    EXPECT_EQ(Run("b.txt"), Outcome::kCompleted);
    const std::vector<std::string> lines{" 1. a.txt\t K = 10", " 2. b.txt\t K = 20", "", "Average Complexity = 15",
                                         "Root Mean Square = 5"};
    std::vector<std::string> window{"TESSARIN Version 1.7", "Complexity of Sequences in " + folder_.Folder(), ""};
    window.insert(window.end(), lines.begin(), lines.end());
    EXPECT_EQ(host_.lines, window);
    const std::string log = folder_.Read("Statistics.log");
    EXPECT_EQ(log.substr(0, log.find("Analysis Done on ")),
              "TESSARIN Version 1.7\r\nComplexity of Sequences in " + folder_.Folder() + "\r\n");
    EXPECT_NE(log.find("\r\n\r\n 1. a.txt\t K = 10\r\n 2. b.txt\t K = 20\r\n\r\nAverage Complexity = 15\r\n"
                       "Root Mean Square = 5\r\n"),
              std::string::npos);
    EXPECT_EQ(host_.shown, std::vector<std::string>{folder_.Path("Statistics.log")});
}

// Catches a match on the last extension instead of all after the first dot, an empty file
// counted or renumbering the files after it, and an earlier Statistics.log overwritten.
TEST_F(FolderComplexityTest, MatchesTheWholeExtensionAndSkipsEmptyFiles) {
    folder_.Write("Statistics.log", "earlier\r\n");
    folder_.Write("x.seq.txt", "ABABAB\r\n");
    folder_.Write("e.seq.txt", "\r\n");
    folder_.Write("y.seq.txt", "ABCABC\r\n");
    EXPECT_EQ(Run("x.seq.txt"), Outcome::kCompleted);
    EXPECT_EQ(std::vector<std::string>(host_.lines.begin() + 3, host_.lines.end()),
              (std::vector<std::string>{" 2. x.seq.txt\t K = 5", " 3. y.seq.txt\t K = 5", "", "Average Complexity = 5",
                                        "Root Mean Square = 0"}));
    EXPECT_EQ(folder_.Read("Statistics.log"), "earlier\r\n");
    EXPECT_TRUE(folder_.Exists("Statistics_1.log"));
}

// Catches a run that goes on after the abort or forgets to say so.
TEST_F(FolderComplexityTest, AbortStopsAfterTheFilesDone) {
    host_.session = &session_;
    host_.caption = "b:";
    host_.occurrence = 1;
    EXPECT_EQ(Run("a.txt"), Outcome::kCancelled);
    EXPECT_EQ(std::vector<std::string>(host_.lines.begin() + 3, host_.lines.end()),
              (std::vector<std::string>{" 1. a.txt\t K = 10", "", "Average Complexity = 10", "Root Mean Square = 0",
                                        "User Abort"}));
}

// Catches a run started although the file dialog was cancelled.
TEST_F(FolderComplexityTest, CancelledDialogEndsWithoutOutput) {
    EXPECT_EQ(GrammarComplexityOfFolder(session_, kNvogram, kVerifyFlag), Outcome::kRefused);
    EXPECT_TRUE(host_.lines.empty());
    EXPECT_FALSE(folder_.Exists("Statistics.log"));
}

}  // namespace
}  // namespace tessarin
