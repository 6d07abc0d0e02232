#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "support/cli_test.h"

namespace tessarin {
namespace {

using testing::ProgramResult;

std::vector<std::string> SplitLines(const std::string& text, const std::string& end) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t next = text.find(end, at);
        lines.push_back(text.substr(at, next - at));
        at = next == std::string::npos ? text.size() : next + end.size();
    }
    return lines;
}

class CliSubwordsTest : public testing::CliTest {
  protected:
    CliSubwordsTest() : CliTest("subwords") {}
};

struct ReportCase {
    const char* arguments;   // the subcommand and its options
    const char* sequence;    // a file of the test data
    const char* start_line;  // the first main-window line
    const char* log_name;    // the report written beside the sequence
    const char* expected;    // the expected report in the test data
    bool results_on_window;  // the result lines are printed on the main window too
};

class CliSubwordReportsTest : public CliSubwordsTest, public ::testing::WithParamInterface<ReportCase> {};

// Catches any change of a report line, of the log's name, and of the main-window lines: the start
// lines with the file name only, the summary, the entropy lines, and the final note.
TEST_P(CliSubwordReportsTest, WritesTheExpectedReportAndMainWindowLines) {
    const ReportCase& c = GetParam();
    const ProgramResult result = Cli(std::string(c.arguments) + " " + Sequence(c.sequence));
    ASSERT_EQ(result.status, 0) << result.err;
    const std::string report = Masked(data_.Read(c.log_name));
    EXPECT_EQ(report, ReadData(c.expected));

    const std::vector<std::string> log_lines = SplitLines(report, "\r\n");
    std::vector<std::string> expected_out{c.start_line, std::string("Sequence ") + c.sequence};
    const std::size_t window_end = c.results_on_window ? log_lines.size() : 9;  // header and summary
    expected_out.insert(expected_out.end(), log_lines.begin() + 4, log_lines.begin() + window_end);
    std::vector<std::string> out = SplitLines(result.out, "\n");
    ASSERT_FALSE(out.empty());
    EXPECT_TRUE(std::regex_match(out.back(), std::regex("Time needed = [0-9.]+ sec"))) << out.back();
    out.pop_back();
    EXPECT_EQ(out, expected_out);
    EXPECT_NE(result.err.find("Report: " + data_.Path(c.log_name)), std::string::npos) << result.err;
}

constexpr const char* kEntropies = "Compute Partial Entropies  - Press any key to cancel";
constexpr const char* kUncertainties = "Compute Local Conditional Uncertainties - Press any key to cancel";
constexpr const char* kExceptional = "Find Exceptional Words  - Press any key to cancel";
constexpr const char* kRepeats = "Find Repeated Words  - Press any key to cancel";

// Sequences over one letter (AAAA), two letters, DNA and protein letters. Where single precision
// decides a printed digit: the rounding residues of AAAA's entropies, h(A) of mix, p and p/f of
// ATTA in dna and of YIAK in protein.
INSTANTIATE_TEST_SUITE_P(
    Reports, CliSubwordReportsTest,
    ::testing::Values(
        ReportCase{"entropies", "aaaa.txt", kEntropies, "aaaa.log", "entropies_aaaa.log", true},
        ReportCase{"entropies", "abab.txt", kEntropies, "abab.log", "entropies_abab.log", true},
        ReportCase{"entropies", "dna.txt", kEntropies, "dna.log", "entropies_dna.log", true},
        ReportCase{"entropies", "protein.txt", kEntropies, "protein.log", "entropies_protein.log", true},
        ReportCase{"uncertainties", "aaaa.txt", kUncertainties, "aaaa_lst.log", "uncertainties_aaaa.log", false},
        ReportCase{"uncertainties", "mix.txt", kUncertainties, "mix_lst.log", "uncertainties_mix.log", false},
        ReportCase{"uncertainties", "dna.txt", kUncertainties, "dna_lst.log", "uncertainties_dna.log", false},
        ReportCase{"uncertainties", "protein.txt", kUncertainties, "protein_lst.log", "uncertainties_protein.log",
                   false},
        ReportCase{"exceptional --positions", "dna.txt", kExceptional, "dna_lst.log", "exceptional_positions_dna.log",
                   false},
        ReportCase{"exceptional", "binary.txt", kExceptional, "binary_lst.log", "exceptional_binary.log", false},
        ReportCase{"exceptional --positions --max-length 4", "protein.txt", kExceptional, "protein_lst.log",
                   "exceptional_positions_4_protein.log", false},
        ReportCase{"exceptional", "aaaa.txt", kExceptional, "aaaa_lst.log", "exceptional_aaaa.log", false},
        ReportCase{"repeats --positions", "abab.txt", kRepeats, "abab_lst.log", "repeats_positions_abab.log", false},
        ReportCase{"repeats --positions", "aaaa.txt", kRepeats, "aaaa_lst.log", "repeats_positions_aaaa.log", false},
        ReportCase{"repeats", "dna.txt", kRepeats, "dna_lst.log", "repeats_dna.log", false},
        ReportCase{"repeats --max-length 2 --positions", "protein.txt", kRepeats, "protein_lst.log",
                   "repeats_positions_2_protein.log", false}),
    [](const ::testing::TestParamInfo<ReportCase>& info) {
        std::string name = info.param.expected;
        name = name.substr(0, name.find('.'));
        return name;
    });

struct RefusalCase {
    const char* arguments;
    int status;
    const char* message;  // expected in stderr
};

class CliSubwordRefusalsTest : public CliSubwordsTest, public ::testing::WithParamInterface<RefusalCase> {};

// Catches a length the analysis must not start with, and options that are not checked.
TEST_P(CliSubwordRefusalsTest, RefusesWithAMessageAndNoReport) {
    const RefusalCase& c = GetParam();
    const ProgramResult result = Cli(std::string(c.arguments) + " " + Sequence("dna.txt"));
    EXPECT_EQ(result.status, c.status);
    EXPECT_NE(result.err.find(c.message), std::string::npos) << result.err;
    EXPECT_FALSE(data_.Exists("dna_lst.log"));
}

INSTANTIATE_TEST_SUITE_P(Options, CliSubwordRefusalsTest,
                         ::testing::Values(RefusalCase{"exceptional --max-length 2", 1, "Length must be > 2"},
                                           RefusalCase{"exceptional --max-length 0", 2, "--max-length"},
                                           RefusalCase{"repeats --max-length x", 2, "--max-length"},
                                           RefusalCase{"uncertainties --positions", 2, "--positions"},
                                           RefusalCase{"entropies --max-length 3", 2, "--max-length"}));

// Catches references written elsewhere than the program folder, or appended to instead of rewritten.
TEST_F(CliSubwordsTest, ReferencesAreRewrittenInTheProgramFolder) {
    ASSERT_EQ(Cli("references").status, 0);
    const std::string first = program_.Read("Reference.txt");
    ASSERT_EQ(first.rfind("Background References of TESSARIN\r\n", 0), 0U);
    const ProgramResult again = Cli("references");
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(program_.Read("Reference.txt"), first);
    EXPECT_FALSE(program_.Exists("Reference_1.log"));
    EXPECT_NE(again.err.find("Report: " + program_.Path("Reference.txt")), std::string::npos) << again.err;
}

}  // namespace
}  // namespace tessarin
