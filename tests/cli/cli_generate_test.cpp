#include <gtest/gtest.h>

#include <string>

#include "support/cli_test.h"

namespace tessarin {
namespace {

using testing::ProgramResult;
using testing::Quoted;

class CliGenerateTest : public testing::CliTest {};

// Catches a generator seeded from the clock despite --seed, and the plot option not wired.
TEST_F(CliGenerateTest, SeededGenerationIsReproducibleAndPlotted) {
    const std::string out = Quoted(data_.Path("lorenz.txt"));
    ASSERT_EQ(Cli("--seed 5 generate --source lorenz-x --length 500 --out " + out).status, 0);
    const std::string first = data_.Read("lorenz.txt");
    ASSERT_EQ(Cli("generate --source lorenz-x --length 500 --seed 5 --out " + out).status, 0);
    EXPECT_EQ(data_.Read("lorenz.txt"), first);
    EXPECT_EQ(first.size(), 502U);  // 500 symbols and CR LF
#ifdef TESSARIN_CLI_PLOTS
    ASSERT_EQ(
        Cli("generate --source white --length 100 --out " + out + " --plot " + Quoted(data_.Path("p.svg"))).status, 0);
    EXPECT_NE(data_.Read("p.svg").find("<svg"), std::string::npos);
#endif
}

// Catches the form's limits not applied on the command line, and a refused edit writing a file.
TEST_F(CliGenerateTest, RefusalsExitWithOneAndWriteNothing) {
    const ProgramResult too_short = Cli("generate --source white --length 1 --out " + Quoted(data_.Path("w.txt")));
    EXPECT_EQ(too_short.status, 1);
    EXPECT_NE(too_short.err.find("Sequence Length < 2"), std::string::npos) << too_short.err;
    EXPECT_FALSE(data_.Exists("w.txt"));
    data_.Write("dna.txt", "GATTACA\r\n");
    const ProgramResult wrong_size = Cli("change-alphabet --to TG " + Quoted(data_.Path("dna.txt")));
    EXPECT_EQ(wrong_size.status, 1);
    EXPECT_NE(wrong_size.err.find("Alphabets Must Have Equal Size: 4"), std::string::npos) << wrong_size.err;
    EXPECT_FALSE(data_.Exists("dna_1.txt"));
    ASSERT_EQ(Cli("change-alphabet --to TGCA " + Quoted(data_.Path("dna.txt"))).status, 0);
    EXPECT_EQ(data_.Read("dna_1.txt"), "CTAATGT\r\n");
}

}  // namespace
}  // namespace tessarin
