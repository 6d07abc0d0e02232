#include "subwords/subword_command.h"

#include <gtest/gtest.h>

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

Outcome Exceptional(Session& session) {
    return RunExceptionalWords(session, 1);
}
Outcome Repeats(Session& session) {
    return RunRepeatedWords(session, 1);
}

struct BoxCase {
    const char* name;
    CommandFlow flow;
    std::optional<std::string> answer;  // nullopt: the box is cancelled
    const char* message;                // the message box shown, "" for none
    const char* deepest_title;          // the last "Subword Length" heading of the report, "" for no run
    const char* fault;
};

class MaximumLengthBoxTest : public SubwordSessionTest, public ::testing::WithParamInterface<BoxCase> {};

// Also catches a box that does not propose the sequence length.
TEST_P(MaximumLengthBoxTest, AnswerIsRoundedAndCheckedBeforeTheAnalysis) {
    const BoxCase& c = GetParam();
    ChooseSequence("gat.txt", "GATTACAGATTACA");
    host_.box_answers.push_back(c.answer);
    const bool runs = *c.deepest_title != '\0';
    EXPECT_EQ(c.flow(session_), runs ? Outcome::kCompleted : Outcome::kRefused) << c.fault;
    ASSERT_EQ(host_.boxes.size(), 1U);
    EXPECT_EQ(host_.boxes[0].substr(host_.boxes[0].rfind('|')), "|14");
    EXPECT_EQ(host_.messages,
              std::string(c.message).empty() ? std::vector<std::string>{} : std::vector<std::string>{c.message})
        << c.fault;
    if (!runs) {
        EXPECT_FALSE(folder_.Exists("gat_lst.log")) << c.fault;
        EXPECT_TRUE(host_.lines.empty()) << c.fault;
        return;
    }
    std::string deepest;
    for (const std::string& line : ReportLines("gat_lst.log")) {
        if (line.rfind("Subword Length", 0) == 0) deepest = line;
    }
    EXPECT_EQ(deepest, c.deepest_title) << c.fault;
}

INSTANTIATE_TEST_SUITE_P(
    Answers, MaximumLengthBoxTest,
    ::testing::Values(
        BoxCase{"Empty", Exceptional, "", "", "", "an empty answer starts a run"},
        BoxCase{"Cancelled", Exceptional, std::nullopt, "", "", "a cancelled box starts a run"},
        BoxCase{"Zero", Exceptional, "0", "", "", "0 taken for the sequence length or refused with a message"},
        BoxCase{"Two", Exceptional, "2", "Length must be > 2", "", "a length of 2 analysed for exceptional words"},
        BoxCase{"RoundsDownToTwo", Exceptional, "2.4", "Length must be > 2", "", "the answer rounded up"},
        BoxCase{"RoundsUpToThree", Exceptional, " 2.6 ", "", "Subword Length l = 3",
                "the answer cut instead of rounded, or blanks refused"},
        BoxCase{"NotANumber", Exceptional, "x7", "Length must be a number", "",
                "text read as 0 or 7 without a message"},
        BoxCase{"RepeatsOne", Repeats, "1", "", "Subword Length l = 1",
                "the lower limit of 3 applied to repeated words, or the length limit ignored"}),
    [](const ::testing::TestParamInfo<BoxCase>& info) { return std::string(info.param.name); });

struct CommandCase {
    const char* name;
    CommandFlow flow;
    const char* start_line;
    const char* log_name;
};

class SubwordCommandTest : public SubwordSessionTest, public ::testing::WithParamInterface<CommandCase> {};

// Catches a command that goes on without a chosen file or with an empty one, a one-symbol sequence
// analysed or logged, start lines naming the folder, and a missing final note.
TEST_P(SubwordCommandTest, RefusesNoFileAnEmptyOneAndASingleSymbol) {
    const CommandCase& c = GetParam();
    EXPECT_EQ(c.flow(session_), Outcome::kRefused);
    ChooseSequence("seq.txt", "\r\n");
    EXPECT_EQ(c.flow(session_), Outcome::kRefused);
    EXPECT_TRUE(host_.lines.empty());
    EXPECT_TRUE(host_.boxes.empty());
    ChooseSequence("seq.txt", "A");
    host_.box_answers.push_back("5");
    EXPECT_EQ(c.flow(session_), Outcome::kRefused);
    ASSERT_EQ(host_.lines.size(), 3U);
    EXPECT_EQ(host_.lines[0], c.start_line);
    EXPECT_EQ(host_.lines[1], "Sequence seq.txt");
    EXPECT_EQ(host_.lines[2].rfind("Time needed =", 0), 0U);
    EXPECT_FALSE(folder_.Exists(c.log_name));
}

INSTANTIATE_TEST_SUITE_P(
    Commands, SubwordCommandTest,
    ::testing::Values(
        CommandCase{"Entropies", RunBlockEntropies, "Compute Partial Entropies  - Press any key to cancel", "seq.log"},
        CommandCase{"Uncertainties", RunLocalUncertainties,
                    "Compute Local Conditional Uncertainties - Press any key to cancel", "seq_lst.log"},
        CommandCase{"Exceptional", Exceptional, "Find Exceptional Words  - Press any key to cancel", "seq_lst.log"},
        CommandCase{"Repeats", Repeats, "Find Repeated Words  - Press any key to cancel", "seq_lst.log"}),
    [](const ::testing::TestParamInfo<CommandCase>& info) { return std::string(info.param.name); });

struct CancelCase {
    const char* name;
    CommandFlow flow;
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
                                 [](Session& session) { return RunRepeatedWords(session, 0); },
                                 "abab_lst.log",
                                 "Writing...",
                                 3,
                                 {"", "Subword Frequencies", "", "Subword Length l = 1", " 1. f(A) = 3",
                                  "Positions: 1, 3, 5,", "Average Distance = 2, \tr.m.s. = 0", " 2. f(B) = 3",
                                  "Positions: 2, 4, 6,", "Average Distance = 2, \tr.m.s. = 0", "User Abort"},
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
                                 "no \"User Abort\" in the report"},
                      // The table is filled from the words found, so the complete lengths 1 and 2 are reported.
                      CancelCase{"EntropiesDuringSearch",
                                 RunBlockEntropies,
                                 "abab.log",
                                 "abab: Find Words len = 3",
                                 1,
                                 {"Entropy H1 = 1\t  H1/1 = 1\t  H1 - H0 = h0 = 1",
                                  "Entropy H2 = .9709506\t  H2/2 = .4854753\t  H2 - H1 = h1 =-.0290494"},
                                 "entropy lines dropped after a cancelled search"}),
    [](const ::testing::TestParamInfo<CancelCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessarin
