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
    const char* arguments;  // the subcommand and its options
    const char* sequence;   // a file of the test data
    const char* expected;   // the expected report in the test data
};

class CliSubwordReportsTest : public CliSubwordsTest, public ::testing::WithParamInterface<ReportCase> {};

// Catches any change of a report line, of the log's name, and of the main-window lines: the file
// name without its folder, the summary, the entropy lines, and the final note.
TEST_P(CliSubwordReportsTest, WritesTheExpectedReportAndMainWindowLines) {
    const ReportCase& c = GetParam();
    // Only the entropies go to "<base>.log", and only they print their results on the window too.
    const bool entropies = std::string(c.arguments).rfind("entropies", 0) == 0;
    const std::string base = std::string(c.sequence).substr(0, std::string(c.sequence).find('.'));
    const std::string log_name = base + (entropies ? ".log" : "_lst.log");

    const ProgramResult result = Cli(std::string(c.arguments) + " " + Sequence(c.sequence));
    ASSERT_EQ(result.status, 0) << result.err;
    const std::string report = Masked(data_.Read(log_name));
    EXPECT_EQ(report, ReadData(c.expected));

    const std::vector<std::string> log_lines = SplitLines(report, "\r\n");
    std::vector<std::string> expected_out{std::string("Sequence ") + c.sequence};
    const std::size_t window_end = entropies ? log_lines.size() : 9;  // header and summary
    expected_out.insert(expected_out.end(), log_lines.begin() + 4, log_lines.begin() + window_end);
    std::vector<std::string> out = SplitLines(result.out, "\n");
    ASSERT_GE(out.size(), 2U);
    EXPECT_TRUE(std::regex_match(out.back(), std::regex("Time needed = [0-9.]+ sec"))) << out.back();
    out.pop_back();
    out.erase(out.begin());  // the start line: the core command tests pin it
    EXPECT_EQ(out, expected_out);
    EXPECT_NE(result.err.find("Report: " + data_.Path(log_name)), std::string::npos) << result.err;
}

// Sequences over one letter (AAAA), two letters, DNA and protein letters. Where single precision
// decides a printed digit: the rounding residues of AAAA's entropies, h(A) of mix, p and p/f of
// ATTA in dna and of YIAK in protein. The length bounds catch a bound ignored or applied one off.
INSTANTIATE_TEST_SUITE_P(
    Reports, CliSubwordReportsTest,
    ::testing::Values(
        ReportCase{"entropies", "aaaa.txt", "entropies_aaaa.log"},
        ReportCase{"entropies", "abab.txt", "entropies_abab.log"},
        ReportCase{"entropies", "dna.txt", "entropies_dna.log"},
        ReportCase{"entropies", "protein.txt", "entropies_protein.log"},
        ReportCase{"entropies --max-length 2", "dna.txt", "entropies_2_dna.log"},
        ReportCase{"uncertainties", "aaaa.txt", "uncertainties_aaaa.log"},
        ReportCase{"uncertainties", "mix.txt", "uncertainties_mix.log"},
        ReportCase{"uncertainties", "dna.txt", "uncertainties_dna.log"},
        ReportCase{"uncertainties", "protein.txt", "uncertainties_protein.log"},
        ReportCase{"uncertainties --max-length 1", "mix.txt", "uncertainties_1_mix.log"},
        ReportCase{"exceptional --positions", "dna.txt", "exceptional_positions_dna.log"},
        ReportCase{"exceptional", "binary.txt", "exceptional_binary.log"},
        ReportCase{"exceptional --positions --max-length 4", "protein.txt", "exceptional_positions_4_protein.log"},
        ReportCase{"exceptional", "aaaa.txt", "exceptional_aaaa.log"},
        ReportCase{"repeats --positions", "abab.txt", "repeats_positions_abab.log"},
        ReportCase{"repeats --positions", "aaaa.txt", "repeats_positions_aaaa.log"},
        ReportCase{"repeats", "dna.txt", "repeats_dna.log"},
        ReportCase{"repeats --max-length 2 --positions", "protein.txt", "repeats_positions_2_protein.log"}),
    [](const ::testing::TestParamInfo<ReportCase>& info) {
        const std::string name = info.param.expected;
        return name.substr(0, name.find('.'));
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
                                           RefusalCase{"uncertainties --positions", 2, "--positions"}));

// Catches any change of the text, writing elsewhere than the program folder, and a second run
// appending a second copy instead of rewriting the file.
TEST_F(CliSubwordsTest, ReferencesAreRewrittenInTheProgramFolder) {
    ASSERT_EQ(Cli("references").status, 0);
    ASSERT_EQ(Cli("references").status, 0);
    EXPECT_EQ(program_.Read("Reference.txt"), ReadData("references.txt"));
}

// Address space limited to 200 MB, a search over 20 million symbols cannot be set up. Catches
// "std::bad_alloc" or a crash instead of the message, a wrong exit status, and the header and
// summary lost. Sanitizers reserve more address space than the limit allows, so they skip this.
TEST_F(CliSubwordsTest, RunningOutOfMemoryEndsWithAMessageAndKeepsTheLog) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the address sanitizer cannot run under an address-space limit";
#endif
    std::string text(20000000, 'A');
    for (std::size_t i = 0; i < text.size(); i += 3)
        text[i] = 'C';
    data_.Write("long.txt", text);
    const ProgramResult result = testing::RunProgram("ulimit -v 200000; " + std::string(TESSARIN_CLI) +
                                                     " --program-dir " + testing::Quoted(program_.Folder()) +
                                                     " entropies " + testing::Quoted(data_.Path("long.txt")));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "Subword Entropies: Not enough memory for the subword search of a sequence of 20000000 "
              "symbols\n");
    const std::vector<std::string> log = SplitLines(data_.Read("long.log"), "\r\n");
    ASSERT_GE(log.size(), 9U);
    EXPECT_EQ(log[4], "Sequence Length = 20000000");
}

}  // namespace
}  // namespace tessarin
