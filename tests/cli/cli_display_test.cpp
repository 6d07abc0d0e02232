#include <gtest/gtest.h>

#include "support/cli_test.h"

namespace tessarin {
namespace {

using testing::ProgramResult;
using testing::Quoted;

class CliDisplayTest : public testing::CliTest {};

struct DisplayCase {
    const char* name;
    const char* bytes;
    const char* summary;  // the lines after the two title lines, CR LF ended as in the log
};

class CliDisplayCasesTest : public CliDisplayTest, public ::testing::WithParamInterface<DisplayCase> {};

// Catches: line ends left in the text, blanks or case folded, digits and punctuation dropped,
// a one-symbol alphabet's entropy, and the scratch log not rewritten from the start.
TEST_P(CliDisplayCasesTest, PrintsTitleAndSummaryAndRewritesTheScratchLog) {
    const DisplayCase& c = GetParam();
    data_.Write(c.name, c.bytes);
    program_.Write("$logfile.$$$", "an earlier display\r\n");
    const ProgramResult result = Cli("display " + Quoted(data_.Path(c.name)));
    EXPECT_EQ(result.status, 0) << result.err;
    std::string expected_out = std::string("Display Sequence File\nSequence ") + c.name + "\n" + c.summary;
    for (std::size_t at; (at = expected_out.find("\r\n")) != std::string::npos;)
        expected_out.erase(at, 1);
    EXPECT_EQ(result.out, expected_out);
    EXPECT_EQ(program_.Read("$logfile.$$$"), c.summary);
}

INSTANTIATE_TEST_SUITE_P(
    Files, CliDisplayCasesTest,
    ::testing::Values(DisplayCase{"crlf.txt", "ACGT\r\nTTGA\r\n",
                                  "Sequence Length = 8\r\nAlphabet Size = 4 letters\r\nAlphabet: ACGT\r\n\r\n"
                                  "Entropy H1 = - Sum P*Log(P) = .9528195\r\n"},
                      DisplayCase{"lf.txt", "AABB\nAB\n",
                                  "Sequence Length = 6\r\nAlphabet Size = 2 letters\r\nAlphabet: AB\r\n\r\n"
                                  "Entropy H1 = - Sum P*Log(P) = 1\r\n"},
                      DisplayCase{"cr.txt", "aA \rb.1\r",
                                  "Sequence Length = 6\r\nAlphabet Size = 6 letters\r\nAlphabet:  .1Aab\r\n\r\n"
                                  "Entropy H1 = - Sum P*Log(P) = 1\r\n"},
                      DisplayCase{"one.txt", "A",
                                  "Sequence Length = 1\r\nAlphabet Size = 1 letters\r\nAlphabet: A\r\n\r\n"
                                  "Entropy H1 = - Sum P*Log(P) = 0\r\n"}),
    [](const ::testing::TestParamInfo<DisplayCase>& info) {
        std::string name = info.param.name;
        return name.substr(0, name.find('.'));
    });

TEST_F(CliDisplayTest, EmptyFileIsRefusedWithAMessageAndNoLog) {
    data_.Write("empty.txt", "\r\n\r\n");
    const ProgramResult result = Cli("display " + Quoted(data_.Path("empty.txt")));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find("empty.txt"), std::string::npos);
    EXPECT_FALSE(program_.Exists("$logfile.$$$"));
}

TEST_F(CliDisplayTest, UnreadableFileGivesAMessageNamingIt) {
    const ProgramResult result = Cli("display " + Quoted(data_.Path("absent.txt")));
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("absent.txt"), std::string::npos);
}

TEST_F(CliDisplayTest, UsageErrorsExitWithTwoAndAHint) {
    for (const char* arguments : {"", "display", "frobnicate x.txt", "display --bogus x.txt", "--seed abc display x"}) {
        const ProgramResult result = Cli(arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_NE(result.err.find("--help"), std::string::npos) << arguments;
    }
    const ProgramResult help = Cli("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("display FILE"), std::string::npos);
}

TEST_F(CliDisplayTest, TestSequenceIsReproducibleWithASeed) {
    ASSERT_EQ(Cli("--seed 7 test-sequence").status, 0);
    const std::string first = program_.Read("test.txt");
    ASSERT_EQ(Cli("test-sequence --seed 7").status, 0);
    EXPECT_EQ(program_.Read("test.txt"), first);
    ASSERT_EQ(first.size(), 40002U);  // 40000 symbols and CR LF
    EXPECT_EQ(first.find_first_not_of("ABCD"), 40000U);
    ASSERT_EQ(Cli("--seed 8 test-sequence").status, 0);
    EXPECT_NE(program_.Read("test.txt"), first);
}

}  // namespace
}  // namespace tessarin
