#include "grammar/folder_complexity.h"

#include <gtest/gtest.h>

#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

// Requests the user abort when a caption starting with `caption` is shown.
class AbortingHost : public testing::ScriptedHost {
  public:
    Session* session = nullptr;
    std::string caption;

    void ShowProgress(const std::string& text) override {
        ScriptedHost::ShowProgress(text);
        if (session != nullptr && text.rfind(caption, 0) == 0) session->RequestAbort();
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
    }
    std::vector<std::string> FileLines() const { return {host_.lines.begin() + 3, host_.lines.end()}; }
};

// Catches a match on the last extension instead of all after the first dot, an empty file
// counted or renumbering the files after it, and an earlier Statistics.log overwritten.
TEST_F(FolderComplexityTest, MatchesTheWholeExtensionAndSkipsEmptyFiles) {
    folder_.Write("Statistics.log", "earlier\r\n");
    folder_.Write("x.seq.txt", "ABABAB\r\n");
    folder_.Write("e.seq.txt", "\r\n");
    folder_.Write("y.seq.txt", "ABCABC\r\n");
    folder_.Write("z.txt", "ABCABC\r\n");
    EXPECT_EQ(RunFolderComplexity(session_, Method::kNvogram, folder_.Path("x.seq.txt")), Outcome::kCompleted);
    EXPECT_EQ(FileLines(), (std::vector<std::string>{" 2. x.seq.txt\t K = 5", " 3. y.seq.txt\t K = 5", "",
                                                     "Average Complexity = 5", "Root Mean Square = 0"}));
    EXPECT_EQ(folder_.Read("Statistics.log"), "earlier\r\n");
    EXPECT_TRUE(folder_.Exists("Statistics_1.log"));
}

// Catches a run that goes on after the abort, counts the aborted file, or forgets to say so.
TEST_F(FolderComplexityTest, AbortStopsAfterTheFilesDone) {
    folder_.Write("a.txt", "ABCDEFGHIJ\r\n");
    folder_.Write("b.txt", "ABCDEFGHIJKLMNOPQRST\r\n");
    host_.session = &session_;
    host_.caption = "b:";
    EXPECT_EQ(RunFolderComplexity(session_, Method::kNvogram, folder_.Path("a.txt")), Outcome::kCancelled);
    EXPECT_EQ(FileLines(), (std::vector<std::string>{" 1. a.txt\t K = 10", "", "Average Complexity = 10",
                                                     "Root Mean Square = 0", "User Abort"}));
}

}  // namespace
}  // namespace tessarin
