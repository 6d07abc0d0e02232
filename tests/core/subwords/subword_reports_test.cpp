#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "subwords/block_entropies.h"
#include "subwords/exceptional_words.h"
#include "subwords/local_uncertainties.h"
#include "subwords/repeated_words.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

// The command-line tests compare each report whole with an expected log; these cover what they
// cannot reach: the arithmetic over random input, the refusals and the cancels.
namespace tessarin {
namespace {

// -sum (f/T) log_K (f/T) over every word of length n, singletons included, in double precision.
double BruteForceEntropy(const std::string& letters, int n, int alphabet_size) {
    std::map<std::string, int> counts;
    const int places = static_cast<int>(letters.size()) - n + 1;
    for (int p = 0; p < places; ++p)
        ++counts[letters.substr(p, n)];
    double entropy = 0;
    for (const auto& [word, f] : counts)
        entropy -= static_cast<double>(f) / places * std::log(static_cast<double>(f) / places);
    return entropy / std::log(alphabet_size);
}

// Catches a wrong number of places T, words counted twice or missed, and a table that stops
// before the longest repeated word or goes past it (beyond it every word is unique).
TEST(BlockEntropiesTest, EqualTheEntropyOfAllWordsOfEachLength) {
    std::mt19937 random(1);
    for (const int alphabet_size : {2, 3, 4, 20}) {
        std::string letters;
        std::vector<std::int32_t> coded{0};
        for (int i = 0; i < 60 * alphabet_size; ++i) {
            letters.push_back(static_cast<char>('A' + random() % alphabet_size));
            coded.push_back(letters.back() - 'A' + 1);
        }
        const int length = static_cast<int>(letters.size());
        const EntropyTable table =
            ComputeBlockEntropies(coded, EntropyParams{length - 1, std::log(alphabet_size), "random"}, NoProgress);
        const int nmax = static_cast<int>(table.size()) - 1;
        for (int n = 1; n <= nmax; ++n)
            EXPECT_NEAR(table[n], BruteForceEntropy(letters, n, alphabet_size), 2e-6) << "n = " << n;
        EXPECT_NEAR(BruteForceEntropy(letters, nmax + 1, alphabet_size),
                    std::log(length - nmax) / std::log(alphabet_size), 1e-12);
    }
}

struct AnswerCase {
    const char* answer;
    int shortest_length;
    std::optional<int> max_length;
    const char* refusal;
};

class ParseMaximumWordLengthTest : public ::testing::TestWithParam<AnswerCase> {};

TEST_P(ParseMaximumWordLengthTest, RoundsTheAnswerAndRefusesWhatCannotRun) {
    const MaximumLengthAnswer answer = ParseMaximumWordLength(GetParam().answer, GetParam().shortest_length);
    EXPECT_EQ(answer.max_length, GetParam().max_length);
    EXPECT_EQ(answer.refusal, GetParam().refusal);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, ParseMaximumWordLengthTest,
    ::testing::Values(AnswerCase{"", 3, std::nullopt, ""},                           // a run for an empty box
                      AnswerCase{"0", 3, std::nullopt, ""},                          // 0 taken for no limit
                      AnswerCase{"2.4", 3, std::nullopt, "Length must be > 2"},      // rounded up, or not refused
                      AnswerCase{" 2.6 ", 3, 3, ""},                                 // cut instead of rounded
                      AnswerCase{"x7", 1, std::nullopt, "Length must be a number"},  // text read as 0 or 7
                      AnswerCase{"1", 1, 1, ""},                                     // repeats refused below 3
                      AnswerCase{"1e12", 1, kNoLengthLimit, ""}));                   // the length overflowing

// B at 1, 5000 and 9001: distances 4999 and 4001. In single precision the sum of squares
// 40998002 is stored as 40998000, so the spread reads 498.999 where exact arithmetic gives 499.
// Catches distance sums kept in double precision, and the r.m.s. line for two occurrences.
TEST(DistanceLineTest, SumsInSinglePrecision) {
    Subword word;
    word.occurrences = {{1, 0}, {5000, 0}, {9001, 0}};
    EXPECT_EQ(DistanceLine(word), "Average Distance = 4500, \tr.m.s. = 498.999");
    word.occurrences.pop_back();
    EXPECT_EQ(DistanceLine(word), "Distance = 4999");
}

// Requests the user abort when a progress caption starting with `abort_caption` is shown.
class AbortingHost : public testing::ScriptedHost {
  public:
    Session* session = nullptr;
    std::string abort_caption = "-";

    void ShowProgress(const std::string& caption) override {
        ScriptedHost::ShowProgress(caption);
        if (caption.rfind(abort_caption, 0) == 0) session->RequestAbort();
    }
};

using Command = Outcome (*)(Session&, const SubwordParams&);

struct CommandCase {
    const char* name;
    Command run;
    const char* start_line;
    const char* log_name;
    const char* abort_caption;         // answered with an abort when shown first
    std::vector<std::string> results;  // the report so far, after header and summary
};

// A session over a temporary folder whose clock advances one second per reading, so that every
// progress call shows its caption.
class SubwordCommandTest : public ::testing::TestWithParam<CommandCase> {
  protected:
    SubwordCommandTest() {
        session_.SetClock([seconds = 0.0]() mutable { return seconds += 1; });
        host_.session = &session_;
    }
    SubwordParams Sequence(const std::string& text) {
        folder_.Write("seq.txt", text);
        return SubwordParams{folder_.Path("seq.txt"), kNoLengthLimit, true, {}};
    }

    testing::TempFolder folder_;
    AbortingHost host_;
    Session session_{host_, folder_.Folder()};
};

// Catches a command that goes on without a file or with an empty one, a one-symbol sequence
// analysed or logged, start lines naming the folder, and a missing final note.
TEST_P(SubwordCommandTest, RefusesNoFileAnEmptyOneAndASingleSymbol) {
    const CommandCase& c = GetParam();
    EXPECT_EQ(c.run(session_, SubwordParams{}), Outcome::kRefused);
    EXPECT_EQ(c.run(session_, Sequence("\r\n")), Outcome::kRefused);
    EXPECT_TRUE(host_.lines.empty());
    EXPECT_EQ(c.run(session_, Sequence("A")), Outcome::kRefused);
    ASSERT_EQ(host_.lines.size(), 3U);
    EXPECT_EQ(host_.lines[0], c.start_line);
    EXPECT_EQ(host_.lines[1], "Sequence seq.txt");
    EXPECT_EQ(host_.lines[2].rfind("Time needed =", 0), 0U);
    EXPECT_FALSE(folder_.Exists(c.log_name));
}

// Catches lines lost or written past the cancel, a cancelled word list without "User Abort"
// (the entropies end with their table of the lengths searched completely), and a partial report
// not shown.
TEST_P(SubwordCommandTest, CancelKeepsTheLinesWrittenSoFar) {
    const CommandCase& c = GetParam();
    const SubwordParams params = Sequence("ABABAB");
    host_.abort_caption = c.abort_caption;
    EXPECT_EQ(RunCommand(session_, [&](Session& session) { return c.run(session, params); }), Outcome::kCancelled);
    const std::string report = folder_.Read(c.log_name);
    std::vector<std::string> lines;
    for (std::size_t at = 0, end; (end = report.find("\r\n", at)) != std::string::npos; at = end + 2)
        lines.push_back(report.substr(at, end - at));
    EXPECT_EQ(std::vector<std::string>(lines.begin() + std::min<std::size_t>(lines.size(), 9), lines.end()), c.results);
    ASSERT_FALSE(host_.lines.empty());
    EXPECT_EQ(host_.lines.back(), "User Abort");
    EXPECT_EQ(host_.shown.back(), folder_.Path(c.log_name));
}

INSTANTIATE_TEST_SUITE_P(
    Commands, SubwordCommandTest,
    ::testing::Values(CommandCase{"Entropies",
                                  RunBlockEntropies,
                                  "Compute Partial Entropies  - Press any key to cancel",
                                  "seq.log",
                                  "seq: Find Words len = 3",
                                  {"Entropy H1 = 1\t  H1/1 = 1\t  H1 - H0 = h0 = 1",
                                   "Entropy H2 = .9709506\t  H2/2 = .4854753\t  H2 - H1 = h1 =-.0290494"}},
                      CommandCase{"Uncertainties",
                                  RunLocalUncertainties,
                                  "Compute Local Conditional Uncertainties - Press any key to cancel",
                                  "seq_lst.log",
                                  "seq: Find Words len = 1",
                                  {"", "Local Conditional Uncertainties", "User Abort"}},
                      CommandCase{"Exceptional",
                                  RunExceptionalWords,
                                  "Find Exceptional Words  - Press any key to cancel",
                                  "seq_lst.log",
                                  "Writing...",
                                  {"", "Exceptional Subword List", "User Abort"}},
                      CommandCase{"Repeats",
                                  RunRepeatedWords,
                                  "Find Repeated Words  - Press any key to cancel",
                                  "seq_lst.log",
                                  "seq: Find Words len = 2",
                                  {"", "Subword Frequencies", "", "Subword Length l = 1", " 1. f(A) = 3",
                                   "Positions: 1, 3, 5,", "Average Distance = 2, \tr.m.s. = 0", " 2. f(B) = 3",
                                   "Positions: 2, 4, 6,", "Average Distance = 2, \tr.m.s. = 0", "User Abort"}}),
    [](const ::testing::TestParamInfo<CommandCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessarin
