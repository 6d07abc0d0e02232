#include "logfile/log_file.h"

#include <gtest/gtest.h>

#include <regex>

#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

using testing::ScriptedHost;
using testing::TempFolder;

class LogFileTest : public ::testing::Test {
  protected:
    TempFolder program_;
    TempFolder data_;
    ScriptedHost host_;
    Session session_{host_, program_.Folder()};
};

TEST_F(LogFileTest, LineBeforeAnyLogIsNamedGoesToLogFileLogInProgramFolder) {
    WriteLogLine(session_, "first");
    EXPECT_EQ(program_.Read("LogFile.log"), "first\r\n");
}

TEST_F(LogFileTest, ExistingLogGetsTheFirstFreeNumberedName) {
    data_.Write("dna.log", "old");
    data_.Write("dna_1.log", "old");
    session_.log() = LogTarget{"dna.log", data_.Folder()};
    OpenLogFile(session_, 0);
    EXPECT_EQ(session_.log().name, "dna_2.log");
    // A numbered name is cut at its first dot and numbered afresh: never dna_2_1.log.
    data_.Write("dna_2.log", "old");
    OpenLogFile(session_, 0);
    EXPECT_EQ(session_.log().name, "dna_2_1.log");
    EXPECT_EQ(data_.Read("dna.log"), "old");
}

TEST_F(LogFileTest, KeepOneRewritesTheLogFromTheStart) {
    data_.Write("$logfile.$$$", "old\r\n");
    session_.log() = LogTarget{"$logfile.$$$", data_.Folder()};
    OpenLogFile(session_, 1);
    PrintLine(session_, "new");
    EXPECT_EQ(data_.Read("$logfile.$$$"), "new\r\n");
    EXPECT_EQ(host_.lines, std::vector<std::string>{"new"});
}

TEST_F(LogFileTest, ReportHeaderNamesVersionTitleDateAndSequence) {
    session_.sequence().folder = data_.Folder();
    session_.sequence().file_name = "dna.b.txt";
    StartReportLog(session_, "dna.log", "Compute Grammar Complexity");
    const std::string log = data_.Read("dna.log");
    EXPECT_TRUE(
        std::regex_match(log, std::regex("TESSARIN Version 1\\.7\r\n"
                                         "Compute Grammar Complexity  - \\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\r\n"
                                         "Sequence " +
                                         data_.Folder() + "dna\\.b\\.txt\r\n\r\n")))
        << log;
}

TEST_F(LogFileTest, UnwritableLogIsAnError) {
    session_.log() = LogTarget{"x.log", data_.Folder() + "missing-folder/"};
    EXPECT_THROW(WriteLogLine(session_, "line"), LogFileError);
}

}  // namespace
}  // namespace tessarin
