#include "session/session.h"

#include <gtest/gtest.h>

#include "session/command.h"
#include "support/scripted_host.h"

namespace tessarin {
namespace {

using testing::ScriptedHost;

class SessionTest : public ::testing::Test {
  protected:
    ScriptedHost host_;
    Session session_{host_, "/tmp"};
    double now_ = 100;

    void SetUp() override {
        session_.SetClock([this] { return now_; });
    }
};

TEST_F(SessionTest, ProgramFolderDropsItsTrailingSeparator) {
    EXPECT_EQ(session_.program_folder(), std::filesystem::path("/tmp"));
}

TEST_F(SessionTest, BusyUpdatesTheCaptionAtMostEveryTenthOfASecond) {
    session_.Busy("Find Words len = 3", 0);
    now_ += 0.05;
    session_.Busy("Find Words len = 3", 0.4512F);  // within 0.1 s: no update
    now_ += 0.06;
    session_.Busy("Find Words len = 3", 0.4512F);
    session_.Busy("", 1);
    EXPECT_EQ(host_.captions,
              (std::vector<std::string>{"Find Words len = 3: done 0%", "Find Words len = 3: done 45.12%"}));
    EXPECT_EQ(host_.begin_count, 1);
    EXPECT_EQ(host_.end_count, 1);
}

TEST_F(SessionTest, BusyAnswersCancelOnceAbortIsRequested) {
    EXPECT_FALSE(session_.Busy("x", 0));
    session_.RequestAbort();
    EXPECT_TRUE(session_.Busy("x", 0.5F));
    EXPECT_EQ(host_.end_count, 1);  // the caption is restored at once
}

TEST_F(SessionTest, FinalNoteReportsTimeOrAbort) {
    now_ = 86399;  // 23:59:59
    const double start = session_.Now();
    now_ = 1;  // 00:00:01 next day
    session_.FinalNote(start);
    now_ = 12.3456;
    session_.FinalNote(10);
    session_.RequestAbort();
    session_.FinalNote(0);
    EXPECT_FALSE(session_.Aborted());
    EXPECT_EQ(host_.lines, (std::vector<std::string>{"Time needed = 2 sec", "Time needed = 2.35 sec", "User Abort"}));
}

TEST_F(SessionTest, CommandClearsAbortFirstAndTurnsFailuresIntoMessages) {
    session_.RequestAbort();
    const Outcome outcome = RunCommand(session_, [](Session& session) -> Outcome {
        EXPECT_FALSE(session.Aborted());
        throw std::runtime_error("Cannot read the sequence file x.txt");
    });
    EXPECT_EQ(outcome, Outcome::kRefused);
    EXPECT_EQ(host_.messages, std::vector<std::string>{"Cannot read the sequence file x.txt"});
}

}  // namespace
}  // namespace tessarin
