#include "grammar/grammar_complexity.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/parallel_for.h"
#include "session/random_generator.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

// Catches a value for texts too short to compress, and a cancel reported as a value.
TEST(GrammarComplexityOfTextTest, ValueZeroForShortTextsAndNothingWhenCancelled) {
    EXPECT_EQ(GrammarComplexityOfText("xyxyxy", Method::kNvogram, NoProgress), 5.0F);
    EXPECT_EQ(GrammarComplexityOfText("A", Method::kNvogram, NoProgress), 0.0F);
    EXPECT_EQ(GrammarComplexityOfText("", Method::kNvogram, NoProgress), 0.0F);
    EXPECT_EQ(GrammarComplexityOfText("xyxyxy", Method::kNvogram, [](const std::string&, float) { return true; }),
              std::nullopt);
}

// Catches state shared between runs (a data race under the tsan preset, or values that depend on
// what other threads compress at the same time).
TEST(GrammarComplexityOfTextTest, ManyThreadsAtOnceGiveTheValuesOfOneAfterAnother) {
    constexpr int kTexts = 8;
    RandomGenerator random(8);
    std::vector<std::string> texts(kTexts);
    for (int t = 0; t < kTexts; ++t) {
        for (int p = 0; p < 1000 + 300 * t; ++p)
            texts[t] += static_cast<char>('A' + random.Index(2 + t % 4) - 1);
    }
    const Method method = Method::kMaximumGain;
    std::vector<std::optional<float>> alone(kTexts);
    for (int t = 0; t < kTexts; ++t)
        alone[t] = GrammarComplexityOfText(texts[t], method, NoProgress);
    std::vector<std::optional<float>> together(kTexts);
    ParallelFor(kTexts, kTexts, [&](int t) { together[t] = GrammarComplexityOfText(texts[t], method, NoProgress); });
    EXPECT_EQ(together, alone);
}

class CurrentSequenceComplexityTest : public ::testing::Test {
  protected:
    testing::TempFolder folder_;
    testing::ScriptedHost host_;
    Session session_{host_, folder_.Folder()};

    void MakeCurrent(const std::string& name, const std::string& text) {
        session_.sequence().folder = folder_.Folder();
        session_.sequence().file_name = name;
        session_.sequence().text = text;
    }
};

// Catches a log written, or a value other than 0, for a sequence too short to compress; the
// start lines come before the length test.
TEST_F(CurrentSequenceComplexityTest, OneSymbolGivesZeroAndNoLog) {
    MakeCurrent("one.txt", "A");
    EXPECT_EQ(CurrentSequenceComplexity(session_, Method::kNvogram, true), 0.0F);
    EXPECT_EQ(host_.lines, (std::vector<std::string>{"Compute Grammar Complexity  - Press any key to cancel",
                                                     "Sequence " + folder_.Folder() + "one.txt"}));
    EXPECT_FALSE(folder_.Exists("one.log"));
}

// Catches the current alphabet left stale (the rules are printed through it), a report or log
// where none is wanted, and an earlier report overwritten.
TEST_F(CurrentSequenceComplexityTest, SetsTheAlphabetAndWritesTheReportOnlyWhenAsked) {
    MakeCurrent("dna.b.txt", "xyxyxy");
    EXPECT_EQ(CurrentSequenceComplexity(session_, Method::kNvogram, false), 5.0F);
    EXPECT_EQ(session_.sequence().alphabet.letters, (std::vector<unsigned char>{'x', 'y'}));
    EXPECT_TRUE(host_.lines.empty());
    EXPECT_TRUE(host_.shown.empty());
    folder_.Write("dna.log", "first\r\n");
    EXPECT_EQ(CurrentSequenceComplexity(session_, Method::kNvogram, true), 5.0F);
    EXPECT_EQ(folder_.Read("dna.log"), "first\r\n");
    EXPECT_NE(folder_.Read("dna_1.log").find("\r\nRule 1: [3] -> {xy}\r\n"), std::string::npos);
    EXPECT_EQ(host_.shown, std::vector<std::string>{folder_.Path("dna_1.log")});
    EXPECT_TRUE(host_.messages.empty());
}

}  // namespace
}  // namespace tessarin
