#include "subwords/subword_command.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/subwords/subword_session.h"
#include "subwords/block_entropies.h"
#include "subwords/exceptional_words.h"
#include "subwords/local_uncertainties.h"
#include "subwords/repeated_words.h"

namespace tessarin {
namespace {

using testing::SubwordSessionTest;

using Flow = std::function<Outcome(Session&)>;

Outcome Exceptional(Session& session) {
    return RunExceptionalWords(session, 1);
}
Outcome Repeats(Session& session) {
    return RunRepeatedWords(session, 1);
}

struct BoxCase {
    const char* name;
    Flow flow;
    std::optional<std::string> answer;  // nullopt: the box is cancelled
    Outcome outcome;
    const char* message;        // the message box shown, "" for none
    const char* deepest_title;  // the last "Subword Length" heading of the report, "" for no report
    const char* fault;
};

class MaximumLengthBoxTest : public SubwordSessionTest, public ::testing::WithParamInterface<BoxCase> {};

TEST_P(MaximumLengthBoxTest, AnswerIsRoundedAndCheckedBeforeTheAnalysis) {
    const BoxCase& c = GetParam();
    ChooseSequence("gat.txt", "GATTACAGATTACA");
    host_.box_answers.push_back(c.answer);
    EXPECT_EQ(c.flow(session_), c.outcome) << c.fault;
    EXPECT_EQ(host_.messages,
              std::string(c.message).empty() ? std::vector<std::string>{} : std::vector<std::string>{c.message})
        << c.fault;
    if (std::string(c.deepest_title).empty()) {
        EXPECT_FALSE(folder_.Exists("gat_lst.log")) << c.fault;
        EXPECT_TRUE(host_.lines.empty()) << c.fault;
        return;
    }
    const std::vector<std::string> lines = ReportLines("gat_lst.log");
    std::string deepest;
    for (const std::string& line : lines) {
        if (line.rfind("Subword Length", 0) == 0) deepest = line;
    }
    EXPECT_EQ(deepest, c.deepest_title) << c.fault;
}

INSTANTIATE_TEST_SUITE_P(
    Answers, MaximumLengthBoxTest,
    ::testing::Values(
        BoxCase{"ExceptionalEmpty", Exceptional, "", Outcome::kRefused, "", "", "an empty answer starts a run"},
        BoxCase{"ExceptionalCancelled", Exceptional, std::nullopt, Outcome::kRefused, "", "",
                "a cancelled box starts a run"},
        BoxCase{"ExceptionalZero", Exceptional, "0", Outcome::kRefused, "", "",
                "0 taken for the sequence length or refused with a message"},
        BoxCase{"ExceptionalNegative", Exceptional, "-4", Outcome::kRefused, "", "", "a negative answer starts a run"},
        BoxCase{"ExceptionalTwo", Exceptional, "2", Outcome::kRefused, "Length must be > 2", "",
                "a length of 2 is analysed"},
        BoxCase{"ExceptionalRoundsDownToTwo", Exceptional, "2.4", Outcome::kRefused, "Length must be > 2", "",
                "the answer is cut, not rounded"},
        BoxCase{"ExceptionalRoundsUpToThree", Exceptional, " 2.6 ", Outcome::kCompleted, "", "Subword Length l = 3",
                "the answer is cut, not rounded, or blanks are not allowed"},
        BoxCase{"ExceptionalNotANumber", Exceptional, "x7", Outcome::kRefused, "Length must be a number", "",
                "text read as 0 or 7 without a message"},
        BoxCase{"RepeatsOne", Repeats, "1", Outcome::kCompleted, "", "Subword Length l = 1",
                "the lower limit of 3 applied to repeated words"},
        BoxCase{"RepeatsThree", Repeats, "3", Outcome::kCompleted, "", "Subword Length l = 3",
                "the length limit ignored"},
        BoxCase{"RepeatsEmpty", Repeats, "", Outcome::kRefused, "", "", "an empty answer starts a run"},
        BoxCase{"RepeatsNotANumber", Repeats, "three", Outcome::kRefused, "Length must be a number", "",
                "text read as 0 without a message"}),
    [](const ::testing::TestParamInfo<BoxCase>& info) { return std::string(info.param.name); });

class MaximumLengthProposalTest : public SubwordSessionTest {};

// Catches a box with the wrong prompt or title, or proposing anything but the sequence length.
TEST_F(MaximumLengthProposalTest, BoxesProposeTheSequenceLength) {
    ChooseSequence("gat.txt", "GATTACAGATTACA");
    ChooseSequence("gat.txt", "GATTACAGATTACA");
    RunExceptionalWords(session_, 0);
    RunRepeatedWords(session_, 0);
    EXPECT_EQ(host_.boxes, (std::vector<std::string>{"Specify Maximum Word Length|Exceptional Subwords|14",
                                                     "Specify Maximum Word Length|Repeated Subwords|14"}));
}

struct CommandCase {
    const char* name;
    Flow flow;
    const char* start_line;
    const char* log_name;
};

const CommandCase kCommands[] = {
    {"Entropies", RunBlockEntropies, "Compute Partial Entropies  - Press any key to cancel", "seq.log"},
    {"Uncertainties", RunLocalUncertainties, "Compute Local Conditional Uncertainties - Press any key to cancel",
     "seq_lst.log"},
    {"Exceptional", Exceptional, "Find Exceptional Words  - Press any key to cancel", "seq_lst.log"},
    {"Repeats", Repeats, "Find Repeated Words  - Press any key to cancel", "seq_lst.log"},
};

class SubwordCommandTest : public SubwordSessionTest, public ::testing::WithParamInterface<CommandCase> {};

// Catches a command that goes on without a chosen file or with an empty one.
TEST_P(SubwordCommandTest, NoFileOrAnEmptyOneDoesNothing) {
    EXPECT_EQ(GetParam().flow(session_), Outcome::kRefused);
    ChooseSequence("seq.txt", "\r\n");
    EXPECT_EQ(GetParam().flow(session_), Outcome::kRefused);
    EXPECT_TRUE(host_.lines.empty());
    EXPECT_TRUE(host_.boxes.empty());
    EXPECT_FALSE(folder_.Exists(GetParam().log_name));
}

// Catches a one-symbol sequence analysed or logged, start lines naming the folder, and a missing
// final note.
TEST_P(SubwordCommandTest, OneSymbolGetsStartLinesAndFinalNoteButNoLog) {
    const CommandCase& c = GetParam();
    ChooseSequence("seq.txt", "A");
    host_.box_answers.push_back("5");
    EXPECT_EQ(c.flow(session_), Outcome::kRefused);
    ASSERT_EQ(host_.lines.size(), 3U);
    EXPECT_EQ(host_.lines[0], c.start_line);
    EXPECT_EQ(host_.lines[1], "Sequence seq.txt");
    EXPECT_EQ(host_.lines[2].rfind("Time needed =", 0), 0U);
    EXPECT_FALSE(folder_.Exists(c.log_name));
    EXPECT_TRUE(host_.shown.size() == 1 && host_.shown[0] == "Input Sequence: seq.txt");
}

INSTANTIATE_TEST_SUITE_P(Commands, SubwordCommandTest, ::testing::ValuesIn(kCommands),
                         [](const ::testing::TestParamInfo<CommandCase>& info) {
                             return std::string(info.param.name);
                         });

struct CancelCase {
    const char* name;
    Flow flow;
    const char* log_name;
    const char* caption;  // the progress caption whose showing is answered with an abort
    int occurrence;
    std::vector<std::string> results;  // the report after header and summary
    const char* fault;
};

class SubwordCancelTest : public SubwordSessionTest, public ::testing::WithParamInterface<CancelCase> {};

TEST_P(SubwordCancelTest, KeepsTheLinesWrittenSoFar) {
    const CancelCase& c = GetParam();
    ChooseSequence("abab.txt", "ABABAB");
    host_.AbortAt(session_, c.caption, c.occurrence);
    EXPECT_EQ(RunCommand(session_, c.flow), Outcome::kCancelled) << c.fault;
    EXPECT_EQ(ResultLines(c.log_name), c.results) << c.fault;
    ASSERT_FALSE(host_.lines.empty());
    EXPECT_EQ(host_.lines.back(), "User Abort") << c.fault;
    EXPECT_FALSE(session_.Aborted()) << "the final note clears the flag";
    EXPECT_EQ(host_.shown.back(), folder_.Path(c.log_name)) << "the partial report is shown";
}

Outcome RepeatsWithPositions(Session& session) {
    return RunRepeatedWords(session, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Points, SubwordCancelTest,
    ::testing::Values(CancelCase{"RepeatsDuringSearch",
                                 Repeats,
                                 "abab_lst.log",
                                 "abab: Find Words len = 3",
                                 1,
                                 {},
                                 "a list written from a cancelled search"},
                      CancelCase{"RepeatsWhileWriting",
                                 RepeatsWithPositions,
                                 "abab_lst.log",
                                 "Writing...",
                                 3,
                                 {"", "Subword Frequencies", "", "Subword Length l = 1", " 1. f(A) = 3",
                                  "Positions: 1, 3, 5,", "Average Distance = 2, \tr.m.s. = 0", " 2. f(B) = 3",
                                  "Positions: 2, 4, 6,", "Average Distance = 2, \tr.m.s. = 0", "User Abort"},
                                 "lines lost or written past the cancel, or no \"User Abort\" in the report"},
                      CancelCase{"UncertaintiesWhileWriting",
                                 RunLocalUncertainties,
                                 "abab_lst.log",
                                 "Writing...",
                                 2,
                                 {"", "Local Conditional Uncertainties", "", "Subword Length l = 1", " 1. h(A) = 0",
                                  "User Abort"},
                                 "lines lost or written past the cancel, or no \"User Abort\" in the report"},
                      CancelCase{"ExceptionalDuringSearch",
                                 Exceptional,
                                 "abab_lst.log",
                                 "abab: Find Words len = 2",
                                 1,
                                 {},
                                 "a list written from a cancelled search"},
                      CancelCase{"ExceptionalWhileWriting",
                                 Exceptional,
                                 "abab_lst.log",
                                 "Writing...",
                                 1,
                                 {"", "Exceptional Subword List", "User Abort"},
                                 "no \"User Abort\" in the report"}),
    [](const ::testing::TestParamInfo<CancelCase>& info) { return std::string(info.param.name); });

class EntropiesCancelTest : public SubwordSessionTest {};

// Catches entropy lines dropped after a cancelled search: the table is filled from the words
// found, so the complete lengths 1 and 2 are still reported, on the window and in the report.
TEST_F(EntropiesCancelTest, CancelledEntropiesReportTheLengthsFound) {
    ChooseSequence("abab.txt", "ABABAB");
    host_.AbortAt(session_, "abab: Find Words len = 3", 1);
    EXPECT_EQ(RunCommand(session_, RunBlockEntropies), Outcome::kCancelled);
    const std::vector<std::string> results = ResultLines("abab.log");
    ASSERT_GE(results.size(), 2U);
    EXPECT_EQ(results[0], "Entropy H1 = 1\t  H1/1 = 1\t  H1 - H0 = h0 = 1");
    EXPECT_EQ(results[1], "Entropy H2 = .9709506\t  H2/2 = .4854753\t  H2 - H1 = h1 =-.0290494");
    ASSERT_FALSE(host_.lines.empty());
    EXPECT_EQ(host_.lines.back(), "User Abort");
}

}  // namespace
}  // namespace tessarin
