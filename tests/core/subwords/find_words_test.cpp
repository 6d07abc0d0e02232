#include "subwords/find_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <sstream>

#include "session/random_generator.h"
#include "subwords/subword_search.h"
#include "support/reference_find_words.h"

namespace tessarin {
namespace {

using Coded = std::vector<std::int32_t>;
constexpr std::int32_t kLargeSymbol = 2147483647;

// "ABC" -> {0, 1, 2, 3}: symbols 1..26 from letters, index 0 unused.
Coded Letters(const std::string& text) {
    Coded coded{0};
    for (const char c : text)
        coded.push_back(c - 'A' + 1);
    return coded;
}

SequenceSet SetOf(const std::vector<Coded>& sequences) {
    return SequenceSet(sequences.begin(), sequences.end());
}

std::string SymbolText(std::int32_t symbol) {
    return symbol >= 1 && symbol <= 26 ? std::string(1, static_cast<char>('A' + symbol - 1))
                                       : "[" + std::to_string(symbol) + "]";
}

// "AB 3 #1: 1 3 1:5": text, count, rank and occurrences (an occurrence outside sequence 0 shows
// its sequence), the same line for both layouts of a word.
std::string WordLine(const std::vector<std::int32_t>& symbols, int count, int rank,
                     const std::vector<Occurrence>& occurrences) {
    std::ostringstream line;
    for (const std::int32_t symbol : symbols)
        line << SymbolText(symbol);
    line << ' ' << count << " #" << rank << ':';
    for (const Occurrence& at : occurrences) {
        line << ' ';
        if (at.sequence_index != 0) line << at.sequence_index << ':';
        line << at.position;
    }
    return line.str();
}

std::vector<std::int32_t> SymbolsAt(const SequenceSet& set, Occurrence at, int length) {
    const auto& sequence = set[static_cast<std::size_t>(at.sequence_index)];
    return {sequence.begin() + at.position, sequence.begin() + at.position + length};
}

std::vector<std::string> Describe(const SequenceSet& set, const std::vector<SubwordGroup>& groups) {
    std::vector<std::string> lines;
    for (const SubwordGroup& group : groups) {
        for (const Subword& word : group.words)
            lines.push_back(WordLine(SymbolsAt(set, word.at, group.length), word.count, word.rank, word.occurrences));
    }
    return lines;
}

std::vector<std::string> Describe(const testing::WordList& words) {
    std::vector<std::string> lines;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const testing::WordRecord& word = words[i];
        lines.push_back(WordLine({word.symbols.begin() + 1, word.symbols.end()}, word.Count(), word.Rank(),
                                 {word.positions.begin() + 1, word.positions.end()}));
    }
    return lines;
}

std::vector<SubwordGroup> Search(const SequenceSet& set, std::int32_t max_length, const ProgressFn& progress) {
    return FindWords(set, FindWordsParams{max_length, true, "seq"}, progress);
}

// Checks what the lists do not show: each word's parent is the word without its last symbol, its
// occurrences listed on demand are those kept, and its successors (in increasing order) are the
// symbols after its occurrences.
::testing::AssertionResult ParentsAndSuccessorsHold(const SequenceSet& set, std::int32_t max_length) {
    SubwordSearch search(set, FindWordsParams{max_length, true, "seq"}, NoProgress);
    std::vector<std::vector<std::int32_t>> parents;
    std::vector<Successor> successors;
    while (const SubwordGroup* group = search.NextGroup()) {
        const int length = group->length;
        std::vector<std::vector<std::int32_t>> texts;
        for (std::size_t i = 0; i < group->words.size(); ++i) {
            const Subword& word = group->words[i];
            texts.push_back(SymbolsAt(set, word.at, length));
            const std::vector<std::int32_t> prefix(texts.back().begin(), texts.back().end() - 1);
            std::map<std::int32_t, int> expected;
            for (const Occurrence& at : word.occurrences) {
                const auto& sequence = set[static_cast<std::size_t>(at.sequence_index)];
                if (at.position + length <= SequenceLength(sequence)) ++expected[sequence[at.position + length]];
            }
            search.Successors(i, successors);
            std::map<std::int32_t, int> listed;
            std::int32_t last = 0;
            for (const Successor& successor : successors) {
                listed[successor.symbol] = successor.count > 0 && successor.symbol > last ? successor.count : -1;
                last = successor.symbol;
            }
            if ((length > 1 && parents.at(static_cast<std::size_t>(word.parent)) != prefix) || listed != expected ||
                WordLine({}, 0, 0, search.Occurrences(i)) != WordLine({}, 0, 0, word.occurrences)) {
                return ::testing::AssertionFailure() << "word " << i << " of length " << length;
            }
        }
        parents = std::move(texts);
    }
    return ::testing::AssertionSuccess();
}

// Random sequence sets against the step-by-step search: one letter (AAAA) or none repeated, every
// kind of bound, empty sequences among others, large codes, periodic stretches. A failing case is
// named by its index; the seed is fixed.
TEST(FindWordsDifferentialTest, AgreesWithTheStepByStepSearchOnRandomSequences) {
    std::mt19937 random(20240611);
    auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    constexpr std::int32_t kMaxLengths[] = {1, 2, 3, 4, 6, 10, kNoLengthLimit, kNoLengthLimit, 0, -3};
    for (int i = 0; i < 4000; ++i) {
        const int alphabet = pick(1, 6);
        // Sometimes letters become large, scattered codes, up to the largest.
        std::vector<std::int32_t> code(alphabet + 1);
        for (int letter = 1; letter <= alphabet; ++letter)
            code[letter] = pick(0, 9) == 0 ? kLargeSymbol - pick(0, 3) : letter;
        std::vector<Coded> sequences(pick(1, 3), Coded{0});
        for (Coded& sequence : sequences) {
            // Short ones more often, as the reference is slow; some periodic, as long repeats are.
            const int length = pick(0, pick(1, 60));
            const int period = pick(0, 2) == 0 ? pick(1, 5) : length;
            for (int p = 1; p <= length; ++p)
                sequence.push_back(p > period ? sequence[p - period] : code[pick(1, alphabet)]);
        }
        const SequenceSet set = SetOf(sequences);
        const std::int32_t max_length = kMaxLengths[pick(0, 9)];
        testing::WordList expected;
        testing::ReferenceFindWords(set, expected, max_length);
        ASSERT_EQ(Describe(set, Search(set, max_length, NoProgress)), Describe(expected)) << "case " << i;
        ASSERT_TRUE(ParentsAndSuccessorsHold(set, max_length)) << "case " << i;
    }
}

// Records the progress texts, a step's repeated reports once, and answers "cancelled" at the
// first report of the chosen step.
struct ProgressLog {
    std::vector<std::string> steps;
    std::string cancel_text = "-";

    ProgressFn Fn() {
        return [this](const std::string& text, float) {
            if (steps.empty() || steps.back() != text || text.empty()) steps.push_back(text);
            return text == cancel_text;
        };
    }
};

// Also catches overlapping occurrences lost, and the whole sequence recorded.
TEST(FindWordsProgressTest, NamesEachLengthAndClosesEachWithAnEmptyText) {
    ProgressLog log;
    const std::vector<Coded> sequences{Letters("AAAA")};
    const SequenceSet set = SetOf(sequences);
    EXPECT_EQ(Describe(set, Search(set, kNoLengthLimit, log.Fn())),
              (std::vector<std::string>{"A 4 #1: 1 2 3 4", "AA 3 #1: 1 2 3", "AAA 2 #1: 1 2"}));
    EXPECT_EQ(log.steps, (std::vector<std::string>{"seq: Find Words len = 1", "", "seq: Find Words len = 2", "",
                                                   "seq: Find Words len = 3", "", "seq: Find Words len = 4", ""}));
}

class FindWordsCancelTest : public ::testing::TestWithParam<int> {};

// Catches a group handed on half built after a cancel, or a search that goes on after it.
TEST_P(FindWordsCancelTest, KeepsTheLengthsCompletedBeforeTheCancel) {
    const int cancelled_length = GetParam();
    const std::vector<Coded> sequences{Letters("ABCABDABCABDABCABDAABCDDABCABDABC")};
    const SequenceSet set = SetOf(sequences);
    std::vector<SubwordGroup> full = Search(set, kNoLengthLimit, NoProgress);
    ASSERT_GT(full.size(), 7U);
    full.resize(static_cast<std::size_t>(cancelled_length) - 1);
    ProgressLog log;
    log.cancel_text = "seq: Find Words len = " + std::to_string(cancelled_length);
    EXPECT_EQ(Describe(set, Search(set, kNoLengthLimit, log.Fn())), Describe(set, full));
    EXPECT_EQ(log.steps.back(), log.cancel_text) << "progress reported after the cancel";
}

INSTANTIATE_TEST_SUITE_P(Lengths, FindWordsCancelTest, ::testing::Values(1, 2, 7));

// A long text, so that every phase of building the index reports part-way.
Coded LongRandomText(int length) {
    RandomGenerator random(20261123);
    Coded coded{0};
    for (int p = 1; p <= length; ++p)
        coded.push_back(random.Index(4));
    return coded;
}

// Catches an index built in silence (no cancel possible for seconds on a long sequence), a
// fraction that runs backwards within a step, or one that reaches 1 (which ends the progress
// display) before the step's own end.
TEST(FindWordsProgressTest, IndexOfALongTextReportsRisingFractionsBelowOne) {
    const std::vector<Coded> sequences{LongRandomText(300000)};
    std::vector<float> fractions;
    bool closed = false;
    SubwordSearch search(SetOf(sequences), FindWordsParams{2, false, "seq"}, [&](const std::string& text, float f) {
        if (text == "seq: Find Words len = 1") fractions.push_back(f);
        if (text.empty() && !closed) closed = true;
        return false;
    });
    ASSERT_NE(search.NextGroup(), nullptr);
    ASSERT_TRUE(closed);
    // One report per 4096 units of some sixteen passes over the text.
    EXPECT_GT(fractions.size(), 1000U);
    EXPECT_TRUE(std::is_sorted(fractions.begin(), fractions.end()));
    EXPECT_LT(fractions.back(), 1.0F);
    EXPECT_GT(fractions.back(), 0.5F) << "the estimate of the work is far too high";
}

// Catches a cancel that is only heard between the phases of the index, or a search that hands
// on a group built from a half-sorted text.
TEST(FindWordsIndexCancelTest, CancelPartWayThroughTheIndexStopsAtOnce) {
    const std::vector<Coded> sequences{LongRandomText(300000)};
    for (const int cancel_at : {2, 300, 900}) {
        int reports = 0;
        SubwordSearch search(SetOf(sequences), FindWordsParams{kNoLengthLimit, false, "seq"},
                             [&](const std::string&, float) { return ++reports >= cancel_at; });
        EXPECT_EQ(search.NextGroup(), nullptr) << "cancelled at report " << cancel_at;
        EXPECT_TRUE(search.Cancelled());
        EXPECT_EQ(reports, cancel_at) << "progress reported after the cancel";
        EXPECT_EQ(search.NextGroup(), nullptr);
    }
}

}  // namespace
}  // namespace tessarin
