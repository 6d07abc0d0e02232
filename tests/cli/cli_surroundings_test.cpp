#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/cli_test.h"

namespace tessarin {
namespace {

using testing::ProgramResult;
using testing::Quoted;

// The command line as it is really used: in pipelines, interrupted, started many times at once.
class CliSurroundingsTest : public testing::CliTest {
  protected:
    // DNA-like symbols: a grammar of thousands of passes, whose run prints far more than a pipe holds.
    std::string RandomSequence(const std::string& name, std::size_t length) const {
        std::string text;
        std::uint32_t state = 2463534242U;  // xorshift: no short period that would plant long repeats
        for (std::size_t i = 0; i < length; ++i) {
            state ^= state << 13;
            state ^= state >> 17;
            state ^= state << 5;
            text.push_back("ACGT"[state % 4]);
        }
        data_.Write(name, text);
        return Quoted(data_.Path(name));
    }
    // Runs a shell line (the program named as "CLI") and answers what it printed.
    ProgramResult Shell(std::string line) const {
        const std::string cli = std::string(TESSARIN_CLI) + " --program-dir " + Quoted(program_.Folder());
        for (std::size_t at; (at = line.find("CLI")) != std::string::npos;)
            line.replace(at, 3, cli);
        return testing::RunProgram("sh -c " + Quoted(line));
    }
};

// Catches an uncaught filesystem error (exit 134) on an empty word where a name belongs.
TEST_F(CliSurroundingsTest, EmptyArgumentsAreUsageErrors) {
    for (const char* arguments : {"display ''", "--program-dir '' display x.txt", "complexity --folder ''"}) {
        const ProgramResult result = Shell(std::string("CLI ") + arguments);
        EXPECT_EQ(result.status, 2) << arguments << result.err;
        EXPECT_NE(result.err.find("--help"), std::string::npos) << arguments;
    }
}

// Catches a run killed by SIGPIPE, which left a report with its header and no result.
TEST_F(CliSurroundingsTest, ClosedOutputStillFinishesTheReport) {
    const std::string file = RandomSequence("dna.txt", 20000);
    const ProgramResult piped = Shell("(CLI complexity " + file + "; echo $? >&2) | head -c 10");
    EXPECT_EQ(piped.err.substr(piped.err.size() - 2), "0\n") << piped.err;
    ASSERT_TRUE(Shell("CLI complexity " + file).status == 0);
    const std::string complete = data_.Read("dna_1.log");
    EXPECT_EQ(Masked(data_.Read("dna.log")), Masked(complete));
    EXPECT_NE(complete.find("Rule 1: "), std::string::npos);
}

// Catches Ctrl-C or SIGTERM killing the run at once instead of ending it as a cancelled one.
TEST_F(CliSurroundingsTest, InterruptCancelsTheRun) {
    const std::string file = RandomSequence("long.txt", 200000);
    for (const char* signal_name : {"INT", "TERM"}) {
        // The signal is sent once the run has begun, when the program's handlers are in place.
        const ProgramResult result =
            Shell("CLI complexity --method longest " + file + " >" + Quoted(data_.Path("out")) +
                  " & pid=$!; until grep -q Sequence " + Quoted(data_.Path("out")) +
                  "; do sleep 0.1; done; sleep 0.2; kill -" + signal_name + " $pid; wait $pid; echo $?");
        EXPECT_EQ(result.out, "1\n") << signal_name;
        const std::string out = data_.Read("out");
        EXPECT_EQ(out.substr(out.size() - 11), "User Abort\n") << signal_name;
    }
}

// Catches two runs sharing a log: each must claim a name of its own before writing to it.
TEST_F(CliSurroundingsTest, ConcurrentRunsEachWriteOneCompleteLog) {
    const std::string file = RandomSequence("dna.txt", 3000);
    std::string line;
    for (int run = 0; run < 8; ++run)
        line += "CLI complexity " + file + " >/dev/null 2>&1 & ";
    line += "CLI entropies " + file + " >/dev/null 2>&1 & wait";
    Shell(line);
    int complexity_logs = 0;
    for (const std::string name : {"dna.log", "dna_1.log", "dna_2.log", "dna_3.log", "dna_4.log", "dna_5.log",
                                   "dna_6.log", "dna_7.log", "dna_8.log"}) {
        const std::string log = data_.Read(name);
        ASSERT_EQ(log.find("TESSARIN Version"), 0U) << name;
        EXPECT_EQ(log.find("TESSARIN Version", 1), std::string::npos) << name << " holds two reports";
        if (log.find("Compute Grammar Complexity") != std::string::npos) {
            ++complexity_logs;
            EXPECT_NE(log.find("Rule 1: "), std::string::npos) << name;
        }
    }
    EXPECT_EQ(complexity_logs, 8);
    EXPECT_FALSE(data_.Exists("dna_9.log"));
}

}  // namespace
}  // namespace tessarin
