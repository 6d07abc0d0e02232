#include "generate/discretise_series.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "generate/alphabet_letters.h"
#include "generate/sort_with_progress.h"

namespace tessarin {
namespace {

SeriesStatistics StatisticsOf(const std::vector<float>& values) {
    StatisticsAccumulator accumulator;
    for (const float v : values)
        accumulator.Add(v);
    return accumulator.Result();
}

Discretisation Discretise(const std::vector<float>& values, int alphabet_size, Partition partition) {
    auto result = DiscretiseSeries(values, StatisticsOf(values), alphabet_size, partition, NoProgress);
    EXPECT_TRUE(result.has_value());
    return result.value_or(Discretisation{});
}

struct PartitionCase {
    const char* name;
    std::vector<float> values;
    int alphabet_size;
    Partition partition;
    std::vector<float> thresholds;
    const char* text;
};

class PartitionTest : public ::testing::TestWithParam<PartitionCase> {};

TEST_P(PartitionTest, ThresholdsAndSymbols) {
    const PartitionCase& c = GetParam();
    const Discretisation result = Discretise(c.values, c.alphabet_size, c.partition);
    EXPECT_EQ(result.thresholds, c.thresholds);
    EXPECT_EQ(result.text, c.text);
}

const PartitionCase kPartitionCases[] = {
    // Catches a constant series divided by a zero range instead of all first letters.
    {"ConstantFrequency", {5, 5, 5}, 4, Partition::kEqualFrequency, {5, 5, 5, 5, 5}, "AAA"},
    {"ConstantIntervals", {5, 5, 5}, 2, Partition::kEqualIntervals, {5, 5, 5}, "000"},
    {"ConstantRms", {5, 5, 5}, 3, Partition::kMultiplesOfRms, {5, 5, 5, 5}, "000"},
    // Catches intervals open on the right: a value on t(k) belongs to interval k.
    {"OnThreshold", {4, 0, 1, 2, 3}, 4, Partition::kEqualIntervals, {0, 1, 2, 3, 4}, "TAACG"},
    // Catches rounding halves up: position 2.5 of the sorted series is 2, not 3.
    {"HalfToEven", {40, 30, 20, 10}, 4, Partition::kEqualFrequency, {10, 20, 20, 30, 40}, "TGAA"},
    {"Frequency", {3, 1, 4, 1, 5, 9, 2, 6}, 2, Partition::kEqualFrequency, {1, 3, 9}, "00101101"},
    // Catches the r.m.s. thresholds off centre, and values beyond t(0) or t(A) not kept at the
    // first or last letter: with two letters the sign decides, the mean giving the first.
    {"RmsTwoLetters", {-3, -1, 0, 1, 3}, 2, Partition::kMultiplesOfRms, {-2, 0, 2}, "00011"},
    // Catches A / 2 taken as an integer for odd A.
    {"RmsOddAlphabet", {-3, -1, 0, 1, 3}, 3, Partition::kMultiplesOfRms, {-3, -1, 1, 3}, "00112"},
};

INSTANTIATE_TEST_SUITE_P(Partitions, PartitionTest, ::testing::ValuesIn(kPartitionCases),
                         [](const auto& info) { return std::string(info.param.name); });

// Catches merges that lose or reorder values across the sort's blocks (sizes around a block).
TEST(SortWithProgressTest, EqualsAPlainSortAcrossBlocks) {
    std::mt19937 random(3);
    std::uniform_int_distribution<int> value(-1000, 1000);  // many ties
    for (const std::size_t n : {0UL, 1UL, 65536UL, 65537UL, 300001UL}) {
        std::vector<float> values(n);
        for (float& v : values)
            v = static_cast<float>(value(random)) / 7;
        std::vector<float> expected = values;
        std::sort(expected.begin(), expected.end());
        ASSERT_TRUE(SortWithProgress(values, NoProgress));
        EXPECT_EQ(values, expected) << n;
    }
}

// Catches a cancel that is ignored in the sort or in the partitioning.
TEST(DiscretiseSeriesTest, CancelInSortOrPartitioningReturnsNothing) {
    std::vector<float> ramp(200000);
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i] = static_cast<float>(i);
    for (const char* stage : {"Sorting..", "Partitioning..."}) {
        const auto cancel = [stage](const std::string& text, float fraction) { return text == stage && fraction > 0; };
        EXPECT_FALSE(DiscretiseSeries(ramp, StatisticsOf(ramp), 4, Partition::kEqualFrequency, cancel)) << stage;
    }
}

// Catches letters and code table out of step, or the code table left at the old alphabet.
TEST(DiscretiseSeriesTest, BecomesTheCurrentSequence) {
    CurrentSequence sequence;
    SetDiscretisedSequence(sequence, Discretise({1, 9, 4, 6}, 20, Partition::kEqualIntervals));
    EXPECT_EQ(sequence.text, "GWEM");
    EXPECT_EQ(sequence.AlphabetSize(), 20);
    EXPECT_EQ(sequence.alphabet.Letter(2), 'A');
    EXPECT_EQ(sequence.alphabet.codes['W'], 20);
    EXPECT_EQ(sequence.alphabet.codes['G'], 1);
}

struct LettersCase {
    int size;
    std::string letters;
};

class AlphabetLettersTest : public ::testing::TestWithParam<LettersCase> {};

// Each size sits at the edge of a rule, so a shifted bound or a wrong start letter shows.
TEST_P(AlphabetLettersTest, LettersOfTheAlphabetSize) {
    EXPECT_EQ(AlphabetLetters(GetParam().size), GetParam().letters);
}

const std::string kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
const std::string kSmall = "abcdefghijklmnopqrstuvwxyz";

std::string CodesFrom32(int count) {
    std::string letters;
    for (int k = 0; k < count; ++k)
        letters.push_back(static_cast<char>(32 + k));
    return letters;
}

INSTANTIATE_TEST_SUITE_P(Sizes, AlphabetLettersTest,
                         ::testing::Values(LettersCase{2, "01"}, LettersCase{4, "ACGT"}, LettersCase{10, "0123456789"},
                                           LettersCase{11, "0123456789A"}, LettersCase{16, "0123456789ABCDEF"},
                                           LettersCase{20, "GADPSCNEKVQTMLIRHFYW"}, LettersCase{26, kCapitals},
                                           LettersCase{27, kCapitals + "0"},
                                           LettersCase{40, kCapitals + "abcdefghijklmn"},
                                           LettersCase{52, kCapitals + kSmall},
                                           LettersCase{60, kCapitals + kSmall + "01234567"},
                                           LettersCase{63, CodesFrom32(63)}, LettersCase{223, CodesFrom32(223)}));

}  // namespace
}  // namespace tessarin
