#include "subwords/find_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <sstream>

#include "core/subwords/reference_find_words.h"

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

// One line per word: "AB 3 #1: 1 3 1:5" (an occurrence outside sequence 0 shows its sequence).
std::vector<std::string> Describe(const WordList& words) {
    std::vector<std::string> lines;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const WordRecord& word = words[i];
        std::ostringstream line;
        for (int k = 1; k <= word.Length(); ++k) {
            const std::int32_t symbol = word.symbols[k];
            if (symbol >= 1 && symbol <= 26) {
                line << static_cast<char>('A' + symbol - 1);
            } else {
                line << '[' << symbol << ']';
            }
        }
        line << ' ' << word.Count() << " #" << word.Rank() << ':';
        for (std::size_t j = 1; j < word.positions.size(); ++j) {
            const Occurrence& at = word.positions[j];
            line << ' ';
            if (at.sequence_index != 0) line << at.sequence_index << ':';
            line << at.position;
        }
        lines.push_back(line.str());
    }
    return lines;
}

// Records the progress calls, a step's repeated reports once, and checks their fractions: within
// 0..1, never falling within a step, 1 with the empty text. Answers "cancelled" at the chosen call.
struct ProgressLog {
    std::vector<std::string> steps;
    int calls = 0;
    std::vector<std::string> faults;
    std::string cancel_text = "-";
    int cancel_after = 0;  // calls with cancel_text let through before cancelling

    ProgressFn Fn() {
        return [this](const std::string& text, float fraction) {
            ++calls;
            const bool same_step = !steps.empty() && steps.back() == text && !text.empty();
            if (!same_step) steps.push_back(text);
            if (fraction < 0 || fraction > 1 || (same_step && fraction < last_fraction_) ||
                (text.empty() && fraction != 1)) {
                faults.push_back(text + " at " + std::to_string(fraction));
            }
            last_fraction_ = fraction;
            return text == cancel_text && cancel_after-- == 0;
        };
    }

  private:
    float last_fraction_ = 0;
};

WordList Search(const std::vector<Coded>& sequences, std::int32_t max_length, WordList words = {}) {
    FindWords(SetOf(sequences), words, max_length, "seq", NoProgress);
    return words;
}

struct SearchCase {
    const char* fault;  // what a failing case reveals
    Coded sequence;
    std::int32_t max_length;
    std::vector<std::string> expected;
};
void PrintTo(const SearchCase& c, std::ostream* out) {
    *out << c.fault;
}

class FindWordsCaseTest : public ::testing::TestWithParam<SearchCase> {};

TEST_P(FindWordsCaseTest, FindsEveryRepeatedWordInOrder) {
    const SearchCase& c = GetParam();
    EXPECT_EQ(Describe(Search({c.sequence}, c.max_length)), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    EdgeCases, FindWordsCaseTest,
    ::testing::Values(
        SearchCase{"words kept that occur once", Letters("ABCD"), kNoLengthLimit, {}},
        SearchCase{"overlapping occurrences lost, or the whole sequence recorded",
                   Letters("AAAA"),
                   kNoLengthLimit,
                   {"A 4 #1: 1 2 3 4", "AA 3 #1: 1 2 3", "AAA 2 #1: 1 2"}},
        SearchCase{"pairs searched although the bound is 1", Letters("AAAA"), 1, {"A 4 #1: 1 2 3 4"}},
        SearchCase{"a bound below 1 stops before pairs", Letters("AAAA"), 0, {"A 4 #1: 1 2 3 4", "AA 3 #1: 1 2 3"}},
        // The reference indexes tables by symbol, so only a fixed case can reach the largest code.
        SearchCase{
            "large symbols truncated or ordered as signed bytes",
            {0, kLargeSymbol, 1, kLargeSymbol, 1, 1, kLargeSymbol},
            kNoLengthLimit,
            {"A 3 #1: 2 4 5", "[2147483647] 3 #2: 1 3 6", "A[2147483647] 2 #1: 2 5", "[2147483647]A 2 #2: 1 3"}}));

TEST(FindWordsResumeTest, ExtendsParentsInListOrderFromTheOccurrencesTheyStillList) {
    // The last group as overlap pruning might leave it: moved, thinned, ranks stale. Walking the
    // parents by rank or regrouping from the sequences gives BDA before DAB, or ABD and ABC.
    const std::vector<Coded> sequences{Letters("ABDABDABCABC")};
    WordList words = Search(sequences, 1);
    auto add = [&](const std::string& text, int rank, std::vector<int> positions) {
        WordRecord word;
        word.symbols = Letters(text);
        word.symbols[0] = 7;  // as a grammar rule's code
        word.positions.push_back(Occurrence{static_cast<int>(positions.size()), rank});
        for (const int p : positions)
            word.positions.push_back(Occurrence{p, 0});
        words.push_back(word);
    };
    add("DA", 4, {3, 6});
    add("BD", 3, {2, 5});
    add("AB", 1, {1, 7});
    add("BC", 2, {8, 11});
    std::vector<std::string> expected = Describe(words);
    expected.insert(expected.end(), {"DAB 2 #1: 3 6", "BDA 2 #2: 2 5"});
    FindWords(SetOf(sequences), words, 3, "seq", NoProgress);
    EXPECT_EQ(Describe(words), expected);
    EXPECT_EQ(words.back().symbols[0], 0) << "a parent's code copied into its child";
}

TEST(FindWordsProgressTest, NamesEachLengthAndClosesLengthsFromTwoOnWithAnEmptyText) {
    ProgressLog log;
    WordList words;
    const std::vector<Coded> sequences{Letters("AAAA")};
    FindWords(SetOf(sequences), words, kNoLengthLimit, "seq", log.Fn());
    EXPECT_EQ(log.steps, (std::vector<std::string>{"seq: Find Words len = 1", "seq: Find Words len = 2", "",
                                                   "seq: Find Words len = 3", "", "seq: Find Words len = 4", ""}));
}

bool SameWords(const WordList& a, const WordList& b) {
    auto same_occurrence = [](const Occurrence& x, const Occurrence& y) {
        return x.position == y.position && x.sequence_index == y.sequence_index;
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](const WordRecord& x, const WordRecord& y) {
        return x.symbols == y.symbols && std::equal(x.positions.begin(), x.positions.end(), y.positions.begin(),
                                                    y.positions.end(), same_occurrence);
    });
}

struct CancelCase {
    const char* fault;
    const char* step;     // the step whose report answers "cancelled"
    int reports_before;   // its reports that pass before that
    int finished_length;  // the list must hold exactly the words of lengths up to this one...
    bool partial_group;   // ...and may hold some of the next length, complete but unranked
};
void PrintTo(const CancelCase& c, std::ostream* out) {
    *out << c.fault;
}

class FindWordsCancelTest : public ::testing::TestWithParam<CancelCase> {};

TEST_P(FindWordsCancelTest, StopsAtOnceLeavingCompleteWords) {
    const CancelCase& c = GetParam();
    std::mt19937 random(11);
    std::vector<Coded> sequences(2, Coded{0});
    for (Coded& sequence : sequences) {
        for (int p = 1; p <= 10000; ++p)
            sequence.push_back(std::uniform_int_distribution<std::int32_t>(1, 4)(random));
    }
    ProgressLog uncancelled;
    WordList full;
    FindWords(SetOf(sequences), full, kNoLengthLimit, "seq", uncancelled.Fn());
    EXPECT_LT(uncancelled.calls, 300) << "progress reported per occurrence";
    ProgressLog log;
    log.cancel_text = std::string("seq: Find Words len = ") + c.step;
    log.cancel_after = c.reports_before;
    WordList words;
    FindWords(SetOf(sequences), words, kNoLengthLimit, "seq", log.Fn());

    EXPECT_EQ(log.steps.back(), log.cancel_text) << "progress reported after the cancel";
    std::size_t finished = 1;
    while (finished < full.size() && full[finished].Length() <= c.finished_length)
        ++finished;
    ASSERT_GE(words.size(), finished);
    EXPECT_EQ(Describe(WordList(words.begin(), words.begin() + finished)),
              Describe(WordList(full.begin(), full.begin() + finished)));
    EXPECT_EQ(words.size() > finished, c.partial_group);
    std::map<Coded, const WordRecord*> complete;
    for (std::size_t i = finished; i < full.size(); ++i)
        complete[full[i].symbols] = &full[i];
    for (std::size_t i = finished; i < words.size(); ++i) {
        WordRecord word = words[i];
        EXPECT_EQ(word.Rank(), 0);
        ASSERT_TRUE(complete.contains(word.symbols));
        const WordRecord& same = *complete[word.symbols];
        word.SetRank(same.Rank());
        EXPECT_TRUE(SameWords({word}, {same})) << Describe({{}, word})[0];
        if (i > finished) {
            EXPECT_GE(words[i - 1].Count(), word.Count());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    EdgeCases, FindWordsCancelTest,
    ::testing::Values(CancelCase{"symbols recorded after a cancel at the start", "1", 0, 0, false},
                      CancelCase{"symbols recorded after a cancel while counting", "1", 3, 0, false},
                      CancelCase{"pairs with missing occurrences after a cancel while counting", "2", 3, 1, false},
                      CancelCase{"words of a cancelled length lost, half-filled or unordered", "7", 2, 6, true}));

// Drops each occurrence that overlaps the last one kept in the same sequence, then moves the word
// forward past words of its length with lower counts, leaving all ranks as they were.
void PruneOverlapsLikeTheGrammar(WordList& words) {
    for (std::size_t i = 1; i < words.size(); ++i) {
        const int length = words[i].Length();
        if (length < 2) continue;
        std::vector<Occurrence> kept{words[i].positions[0]};
        for (int j = 1; j <= words[i].Count(); ++j) {
            const Occurrence at = words[i].positions[j];
            const Occurrence& last = kept.back();
            if (kept.size() > 1 && at.sequence_index == last.sequence_index && at.position - last.position < length) {
                continue;
            }
            kept.push_back(at);
        }
        kept[0].position = static_cast<int>(kept.size()) - 1;
        words[i].positions = kept;
        for (std::size_t at = i;
             at > 1 && words[at - 1].Length() == length && words[at - 1].Count() < words[at].Count(); --at) {
            std::swap(words[at - 1], words[at]);
        }
    }
}

// One search by each from equal lists must leave equal lists, entry 0 and symbols[0] included,
// and report the same steps.
::testing::AssertionResult SameAsReference(const SequenceSet& set, WordList& words, std::int32_t max_length) {
    WordList expected = words;
    ProgressLog reference_log;
    ProgressLog log;
    testing::ReferenceFindWords(set, expected, max_length, "seq", reference_log.Fn());
    FindWords(set, words, max_length, "seq", log.Fn());
    if (!SameWords(words, expected)) {
        return ::testing::AssertionFailure() << "max " << max_length << " found\n"
                                             << ::testing::PrintToString(Describe(words)) << "\nexpected\n"
                                             << ::testing::PrintToString(Describe(expected));
    }
    if (log.steps != reference_log.steps) {
        return ::testing::AssertionFailure() << "progress steps " << ::testing::PrintToString(log.steps)
                                             << "\nexpected " << ::testing::PrintToString(reference_log.steps);
    }
    if (!log.faults.empty()) {
        return ::testing::AssertionFailure() << "progress fractions " << ::testing::PrintToString(log.faults);
    }
    return ::testing::AssertionSuccess();
}

// Each case searches once, or searches again from its list (pruned between, half the time, as
// the grammar does) with a second bound. A failing case is named by its index; the seed is fixed.
TEST(FindWordsDifferentialTest, AgreesWithTheStepByStepSearchOnRandomSequences) {
    std::mt19937 random(20240611);
    auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    constexpr std::int32_t kMaxLengths[] = {1, 2, 3, 4, 6, 10, kNoLengthLimit, kNoLengthLimit, 0, -3};
    for (int i = 0; i < 10000; ++i) {
        const int alphabet = pick(1, 6);
        // Sometimes letters become large, scattered codes, as a grammar's rules are.
        std::vector<std::int32_t> code(alphabet + 1);
        for (int letter = 1; letter <= alphabet; ++letter)
            code[letter] = pick(0, 9) == 0 ? pick(27, 120) : letter;
        std::vector<Coded> sequences(pick(1, 3), Coded{0});
        for (Coded& sequence : sequences) {
            // Short ones more often, as the reference is slow; empty ones must not shift the others' numbers.
            const int length = pick(0, pick(1, 60));
            for (int p = 1; p <= length; ++p)
                sequence.push_back(code[pick(1, alphabet)]);
        }
        const SequenceSet set = SetOf(sequences);
        WordList words;
        ASSERT_TRUE(SameAsReference(set, words, kMaxLengths[pick(0, 9)])) << "case " << i;
        const int mode = pick(0, 2);  // 0 once, 1 resumed, 2 pruned and resumed
        if (mode == 0) continue;
        if (mode == 2) PruneOverlapsLikeTheGrammar(words);
        ASSERT_TRUE(SameAsReference(set, words, kMaxLengths[pick(0, 9)])) << "case " << i << ", resumed";
    }
}

TEST(FindWordsDifferentialTest, AgreesWhereWordsHaveManyDifferentChildren) {
    // "AB" followed by forty different symbols: the children's table grows and is then cleared
    // for the next parent, which must lose no child and keep none of the last parent's.
    std::mt19937 random(5);
    std::uniform_int_distribution<std::int32_t> symbol(3, 42);
    std::vector<Coded> sequences(2, Coded{0});
    for (Coded& sequence : sequences) {
        for (int i = 0; i < 200; ++i)
            sequence.insert(sequence.end(), {1, 2, symbol(random), symbol(random) % 3 + 1});
    }
    WordList words;
    EXPECT_TRUE(SameAsReference(SetOf(sequences), words, kNoLengthLimit));
}

}  // namespace
}  // namespace tessarin
