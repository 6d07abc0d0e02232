#include "generate/generate_command.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "generate/generate_series.h"
#include "logfile/number_text.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

using testing::ScriptedHost;
using testing::TempFolder;

class GenerateCommandTest : public ::testing::Test {
  protected:
    TempFolder folder_;
    ScriptedHost host_;
    Session session_{host_, folder_.Folder()};
    GenerateState state_;

    GenerateParams Params(SignalSource source, OutputFormat format, int length) const {
        GenerateParams params;
        params.source = source;
        params.format = format;
        params.length = length;
        params.output_path = folder_.Path("out.txt");
        return params;
    }
    Outcome Run(const GenerateParams& params) {
        return ExecuteCommand(session_, [&](Session& s) { return RunGenerateOrDiscretize(s, params, state_); });
    }
    std::string Written() const { return folder_.Read("out.txt"); }
};

// Catches a name without the alphabet size for symbols, with it for numbers, or cut at the last dot.
TEST(ProposedOutputNameTest, SourceWordOrSeriesFileBase) {
    GenerateParams params;
    params.source = SignalSource::kLogisticMap;
    params.format = OutputFormat::kSymbolsPerLine;
    EXPECT_EQ(ProposedOutputName(params), "Logistic(4).txt");
    params.source = SignalSource::kWhiteNoise;
    params.format = OutputFormat::kNumbers;
    EXPECT_EQ(ProposedOutputName(params), "White.txt");
    params.mode = GenerateMode::kDiscretiseFile;
    params.series_file = "/data/series.b.dat";
    params.format = OutputFormat::kSymbolsInOneLine;
    params.alphabet_size = 16;
    EXPECT_EQ(ProposedOutputName(params), "series(16).txt");
}

// Catches the wrong layout per format, symbols not made the current sequence, and no file shown.
TEST_F(GenerateCommandTest, WritesSymbolsInBothLayouts) {
    GenerateParams params = Params(SignalSource::kLogisticMap, OutputFormat::kSymbolsInOneLine, 1000);
    ASSERT_EQ(Run(params), Outcome::kCompleted);
    const std::string line = Written();
    EXPECT_EQ(line, session_.sequence().text + "\r\n");
    EXPECT_EQ(session_.sequence().text.find_first_not_of("ACGT"), std::string::npos);
    EXPECT_EQ(std::count(line.begin(), line.end(), 'A'), 251);  // values up to sorted position 251
    EXPECT_EQ(state_.thresholds.size(), 5U);
    EXPECT_EQ(host_.shown, std::vector<std::string>{params.output_path.string()});

    params.format = OutputFormat::kSymbolsPerLine;
    ASSERT_EQ(Run(params), Outcome::kCompleted);
    EXPECT_EQ(Written().size(), 3000U);
    EXPECT_EQ(Written().substr(0, 3), session_.sequence().text.substr(0, 1) + "\r\n");
}

// Catches numbers written in another format than the report's single-precision text.
TEST_F(GenerateCommandTest, WritesNumbersOnePerLine) {
    ASSERT_EQ(Run(Params(SignalSource::kGaussianNoise, OutputFormat::kNumbers, 3)), Outcome::kCompleted);
    std::string expected;
    for (const float v : state_.series.values)
        expected += SingleText(v) + "\r\n";
    EXPECT_EQ(Written(), expected);
    EXPECT_TRUE(state_.thresholds.empty());
}

// Catches a run that does not draw from the session's generator, or draws differently each time.
TEST_F(GenerateCommandTest, SeededRunsAreReproducible) {
    const GenerateParams params = Params(SignalSource::kLorenzSystem, OutputFormat::kSymbolsInOneLine, 500);
    session_.random().Seed(42);
    Run(params);
    const std::string first = Written();
    Run(params);
    EXPECT_NE(Written(), first);
    session_.random().Seed(42);
    Run(params);
    EXPECT_EQ(Written(), first);
}

// Catches a series file discretised with other thresholds than the file's own (whole output).
TEST_F(GenerateCommandTest, DiscretisesASeriesFile) {
    folder_.Write("pi.dat", "3 1 4 1 5\r\n9 2 6\r\n");
    GenerateParams params = Params(SignalSource::kWhiteNoise, OutputFormat::kSymbolsInOneLine, 1000);
    params.mode = GenerateMode::kDiscretiseFile;
    params.series_file = folder_.Path("pi.dat");
    params.alphabet_size = 2;
    ASSERT_EQ(Run(params), Outcome::kCompleted);
    EXPECT_EQ(Written(), "00101101\r\n");
    EXPECT_EQ(state_.thresholds, (std::vector<float>{1, 3, 9}));
}

// Catches failures that leave a file behind: a short series file, a refused setting, a cancel and
// a diverging orbit each end the command with nothing written.
TEST_F(GenerateCommandTest, FailuresWriteNothing) {
    folder_.Write("one.dat", "7\r\n");
    GenerateParams params = Params(SignalSource::kWhiteNoise, OutputFormat::kSymbolsInOneLine, 100);
    params.mode = GenerateMode::kDiscretiseFile;
    params.series_file = folder_.Path("one.dat");
    EXPECT_EQ(Run(params), Outcome::kRefused);
    params.mode = GenerateMode::kGenerate;
    params.alphabet_size = 300;
    EXPECT_EQ(Run(params), Outcome::kRefused);
    EXPECT_EQ(host_.messages,
              (std::vector<std::string>{"File one.dat contains no time series", "Alphabet Size > 223"}));

    params.alphabet_size = 4;
    session_.RequestAbort();
    EXPECT_EQ(Run(params), Outcome::kCancelled);
    EXPECT_EQ(host_.lines.back(), "User Abort");

    // About one start in 600 lies outside the Henon map's basin.
    params.source = SignalSource::kHenonMap;
    std::uint64_t seed = 1;
    for (;; ++seed) {
        RandomGenerator random(seed);
        GaussianState gaussian;
        try {
            GenerateSeries(params, random, gaussian, NoProgress);
        } catch (const SeriesOverflowError&) {
            break;
        }
    }
    session_.random().Seed(seed);
    EXPECT_EQ(Run(params), Outcome::kRefused);
    ASSERT_EQ(host_.messages.size(), 3U);
    EXPECT_EQ(host_.messages.back().rfind("Overflow", 0), 0U);
    EXPECT_FALSE(folder_.Exists("out.txt"));
}

}  // namespace
}  // namespace tessarin
