#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/cli_test.h"

namespace tessarin {
namespace {

using testing::ProgramResult;
using testing::Quoted;

class CliComplexityTest : public testing::CliTest {
  protected:
    CliComplexityTest() : CliTest("grammar") {}
};

struct RunCase {
    const char* method;    // the --method value
    const char* sequence;  // a file of the test data
    const char* expected;  // the expected log and main-window lines: <expected>.log and <expected>.out
};

class CliComplexityRunsTest : public CliComplexityTest, public ::testing::WithParamInterface<RunCase> {};

// Catches any change of a report line (header, summary, method line, complexity, rules) or of
// a main-window line (start lines, summary, passes, final note), for every method.
TEST_P(CliComplexityRunsTest, WritesTheExpectedReportAndMainWindowLines) {
    const RunCase& c = GetParam();
    const ProgramResult result = Cli(std::string("complexity --method ") + c.method + " " + Sequence(c.sequence));
    ASSERT_EQ(result.status, 0) << result.err;
    const std::string log = std::string(c.sequence).substr(0, std::string(c.sequence).find('.')) + ".log";
    EXPECT_EQ(Masked(data_.Read(log)), ReadData(std::string(c.expected) + ".log"));
    EXPECT_EQ(Masked(result.out), ReadData(std::string(c.expected) + ".out"));
    EXPECT_NE(result.err.find("Report: " + data_.Path(log)), std::string::npos) << result.err;
}

INSTANTIATE_TEST_SUITE_P(Methods, CliComplexityRunsTest,
                         ::testing::Values(RunCase{"nvogram", "dna40.txt", "dna40_nvogram"},
                                           RunCase{"shortest", "dna40.txt", "dna40_shortest"},
                                           RunCase{"longest", "dna40.txt", "dna40_longest"},
                                           RunCase{"gain", "dna40.txt", "dna40_gain"},
                                           RunCase{"longest", "aaaabaab.txt", "aaaabaab_longest"}),
                         [](const ::testing::TestParamInfo<RunCase>& info) {
                             return std::string(info.param.expected);
                         });

// Catches a default other than NVOGRAM.
TEST_F(CliComplexityTest, MethodDefaultsToNvogram) {
    const ProgramResult result = Cli("complexity " + Sequence("dna40.txt"));
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(Masked(data_.Read("dna40.log")), ReadData("dna40_nvogram.log"));
}

// Catches a wrong statistics report or main-window listing, a per-file report, and a final
// note where the folder run has none.
TEST_F(CliComplexityTest, FolderRunWritesStatistics) {
    Sequence("k10.txt");
    const std::string chosen = Sequence("k20.txt");
    data_.Write("notes.log", "not a sequence\r\n");
    const ProgramResult result = Cli("complexity --folder --method longest " + chosen);
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(Masked(data_.Read("Statistics.log")), ReadData("statistics.log"));
    EXPECT_EQ(Masked(result.out), ReadData("statistics.out"));
    EXPECT_FALSE(data_.Exists("k10.log"));
}

// Catches an unknown method run with a default instead of refused.
TEST_F(CliComplexityTest, UnknownMethodIsAUsageError) {
    const ProgramResult result = Cli("complexity --method fastest " + Sequence("dna40.txt"));
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("--method"), std::string::npos) << result.err;
    EXPECT_FALSE(data_.Exists("dna40.log"));
}

// Catches a missing file reported as success.
TEST_F(CliComplexityTest, EmptyFileIsRefused) {
    data_.Write("empty.txt", "\r\n");
    const ProgramResult result = Cli("complexity " + Quoted(data_.Path("empty.txt")));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
}

// A random stretch of 50,000 symbols repeated two and a half times would need a node per symbol
// of a copy for each of 70,000 lengths. Catches "std::bad_alloc" or a crash instead of the message,
// a wrong exit status, and the header and summary lost from the log. The address space is limited
// so that a run that fills the memory first ends soon; sanitizers reserve more than that limit.
TEST_F(CliComplexityTest, TandemRepeatBeyondAnyMemoryIsRefusedWithAMessage) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the address sanitizer cannot run under an address-space limit";
#endif
    std::string unit;
    std::uint32_t state = 12345;
    for (int i = 0; i < 50000; ++i) {
        state = state * 1664525U + 1013904223U;
        unit += "ACGT"[state >> 30];
    }
    data_.Write("tandem.txt", unit + unit + unit.substr(0, 20000));
    for (const char* method : {"longest", "gain"}) {
        const ProgramResult result = testing::RunProgram(
            "ulimit -v 1000000; " + std::string(TESSARIN_CLI) + " --program-dir " + Quoted(program_.Folder()) +
            " complexity --method " + method + " " + Quoted(data_.Path("tandem.txt")));
        EXPECT_EQ(result.status, 1) << method;
        EXPECT_EQ(result.err,
                  "Compute Grammar Complexity: Not enough memory for the grammar of a sequence of 120000 symbols\n");
        EXPECT_NE(data_.Read("tandem.log").find("\r\nSequence Length = 120000\r\n"), std::string::npos);
    }
}

}  // namespace
}  // namespace tessarin
