#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "generate/change_alphabet.h"
#include "generate/fractionate.h"
#include "generate/remove_file_context.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin {
namespace {

using testing::ScriptedHost;
using testing::TempFolder;

std::string ReadTestData(const std::string& name) {
    std::ifstream file(std::string(TESSARIN_TEST_DATA) + "/generate/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class SequenceEditsTest : public ::testing::Test {
  protected:
    TempFolder program_;
    TempFolder data_;
    ScriptedHost host_;
    Session session_{host_, program_.Folder()};

    SequenceEditsTest() {
        session_.SetClock([] { return 0.0; });
    }

    std::filesystem::path Sequence(const std::string& text) const {
        data_.Write("seq.txt", text);
        return data_.Path("seq.txt");
    }
    std::filesystem::path Output() const { return data_.Path("seq_1.txt"); }
    std::string Written() const { return data_.Read("seq_1.txt"); }
    // The main-window lines, each ended by "|".
    std::string Lines() const {
        std::string joined;
        for (const std::string& line : host_.lines)
            joined += line + "|";
        return joined;
    }
};

// Catches letters mapped by position in the text instead of in the alphabet, a text changed in
// place, a missing line end, and a summary not reported to the main window and the scratch log.
TEST_F(SequenceEditsTest, ChangeAlphabetWritesTheTextInTheNewLetters) {
    ASSERT_EQ(RunChangeAlphabet(session_, {Sequence("GATTA\r\nCA\r\n"), "TGCA", Output()}), Outcome::kCompleted);
    EXPECT_EQ(Written(), "CTAATGT\r\n");
    EXPECT_EQ(session_.sequence().text, "GATTACA");
    EXPECT_EQ(session_.sequence().alphabet.letters, (std::vector<unsigned char>{'T', 'G', 'C', 'A'}));
    EXPECT_EQ(program_.Read("$logfile.$$$"), ReadTestData("change_alphabet_gattaca.log"));
    EXPECT_EQ(Lines(), "|Change Alphabet|Sequence " + data_.Folder() +
                           "seq.txt||Sequence Length = 7|Alphabet Size = 4 letters|Alphabet: ACGT||"
                           "Entropy H1 = - Sum P*Log(P) = .9211855|New Alphabet: TGCA||Time needed = 0 sec|");
    EXPECT_EQ(host_.shown.back(), Output().string());
}

// Catches repeated letters refused, or the second of them winning for both old letters.
TEST_F(SequenceEditsTest, ChangeAlphabetAcceptsRepeatedLetters) {
    ASSERT_TRUE(CheckNewAlphabet("ACGT", "AACG").value);
    RunChangeAlphabet(session_, {Sequence("GATTACA"), "AACG", Output()});
    EXPECT_EQ(Written(), "CAGGAAA\r\n");
}

// Catches the refusal giving the answer's size instead of the size required, and no second ask.
TEST_F(SequenceEditsTest, ChangeAlphabetAsksAgainUntilTheSizesMatch) {
    EXPECT_EQ(ChangeAlphabetPrompt("ACGT"), "Old Alphabet:\n\nACGT\n\nNew Alphabet:");
    EXPECT_EQ(CheckNewAlphabet("ACGT", "TG").refusal, "Alphabets Must Have Equal Size: 4");
    host_.inputs = {"TG", "TGCAX", "TGCA"};
    EXPECT_EQ(AskNewAlphabet(host_, "ACGT"), "TGCA");
    EXPECT_EQ(host_.messages, std::vector<std::string>(2, "Alphabets Must Have Equal Size: 4"));
    host_.inputs = {""};
    EXPECT_EQ(AskNewAlphabet(host_, "ACGT"), std::nullopt);
}

// Catches a line end after the raw bytes, a case-folding comparison, letters the sequence lacks
// refused, and the result not made the current text.
TEST_F(SequenceEditsTest, RemoveFileContextKeepsOnlyTheNamedLetters) {
    ASSERT_EQ(RunRemoveFileContext(session_, {Sequence("GATTACAat"), "ATX", Output()}), Outcome::kCompleted);
    EXPECT_EQ(Written(), "ATTAA");
    EXPECT_EQ(session_.sequence().text, "ATTAA");
    EXPECT_EQ(program_.Read("$logfile.$$$"), ReadTestData("remove_context_gattaca.log"));
    EXPECT_EQ(session_.sequence().alphabet.Letter(1), 'A');
    EXPECT_EQ(session_.sequence().alphabet.Letter(3), 'X');
    EXPECT_EQ(host_.lines[host_.lines.size() - 3], "New Alphabet: ATX");
    EXPECT_EQ(RemoveFileContextPrompt("ACGT"), "Old Alphabet:\n\nACGT\n\nMaintain Only the Letters:");
}

// Catches the fraction lines, lengths or new length misprinted, and positions off by one.
TEST_F(SequenceEditsTest, FractionateWritesTheFractionsOnePerLine) {
    const auto fractions = ParseFractions("1 - 3, 8 - 10", 10);
    ASSERT_TRUE(fractions.value);
    ASSERT_EQ(RunFractionate(session_, {Sequence("ABCDEFGHIJ"), *fractions.value, Output()}), Outcome::kCompleted);
    EXPECT_EQ(Written(), "ABC\r\nHIJ\r\n");
    EXPECT_EQ(Lines(), "|Fractionate Sequence|Sequence " + data_.Folder() +
                           "seq.txt|Length = 10||1.Fraction: 1 to  3, length = 3|2.Fraction: 8 to  10, length = 3|"
                           "New Length = 6|Time needed = 0 sec|");
}

struct FractionsCase {
    const char* answer;
    std::vector<Fraction> fractions;  // empty when refused
    const char* refusal;
};

class ParseFractionsTest : public ::testing::TestWithParam<FractionsCase> {};

TEST_P(ParseFractionsTest, FractionsOrTheFirstRefusal) {
    const auto checked = ParseFractions(GetParam().answer, 10);
    EXPECT_EQ(checked.refusal, GetParam().refusal);
    EXPECT_EQ(checked.value.value_or(std::vector<Fraction>{}), GetParam().fractions);
}

INSTANTIATE_TEST_SUITE_P(Answers, ParseFractionsTest,
                         ::testing::Values(
                             // Each message of its own, then their order: the first check that fails speaks.
                             FractionsCase{"3 - 1", {}, "Position 1 > Position 2"},
                             FractionsCase{"0 - 5", {}, "Position <= 0"}, FractionsCase{"5 - 11", {}, "Position > 10"},
                             FractionsCase{"5", {}, "Missing Minus Sign"}, FractionsCase{"0 - 11", {}, "Position <= 0"},
                             FractionsCase{"11 - 5", {}, "Position > 10"},
                             // Catches a parse that goes on past the first bad item.
                             FractionsCase{"1 - 2, 5, 3 - 1", {}, "Missing Minus Sign"},
                             FractionsCase{"3 - 1, 5", {}, "Position 1 > Position 2"},
                             // Catches halves rounded up, blanks read inside numbers, empty items not skipped, and
                             // repeated or overlapping fractions merged.
                             FractionsCase{"2.5 - 3.5", {{2, 4}}, ""}, FractionsCase{"1 0 - 3", {{1, 3}}, ""},
                             FractionsCase{" , 1-2,, 1 - 2 ,2-3", {{1, 2}, {1, 2}, {2, 3}}, ""}));

// Catches the proposal and the title, and no second ask after a refusal.
TEST_F(SequenceEditsTest, FractionateAsksAgainAfterARefusal) {
    host_.inputs = {"5", "2 - 4"};
    EXPECT_EQ(AskFractions(host_, "dna.txt", 10), (std::vector<Fraction>{{2, 4}}));
    EXPECT_EQ(host_.messages, std::vector<std::string>{"Missing Minus Sign"});
    EXPECT_EQ(ProposedFractions(10), "1 - 10");
    EXPECT_EQ(FractionateTitle("dna.txt"), "Fractionate: dna.txt");
    EXPECT_EQ(EditOutputName("dna.b.txt"), "dna_1.txt");
}

}  // namespace
}  // namespace tessarin
