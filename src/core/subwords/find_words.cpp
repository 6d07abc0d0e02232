#include "subwords/find_words.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "logfile/number_text.h"
#include "subwords/child_grouping.h"
#include "subwords/search_progress.h"

namespace tessarin {
namespace {

std::string StepText(const std::string& status_name, int length) {
    return status_name + ": Find Words len =" + IntegerText(length);
}

// The length of the last word, 0 when the list holds only its scratch entry.
int LastLength(const WordList& words) {
    return words.size() <= 1 ? 0 : words.back().Length();
}

// Moves the words of `found` to the end of the list ordered by falling count, equal counts in
// their order in `found`: a counting sort, as counts are small numbers and groups can be large.
void AppendByFallingCount(WordList& found, WordList& words) {
    std::vector<int> counts(found.size());
    int most = 0;
    for (std::size_t i = 0; i < found.size(); ++i) {
        counts[i] = found[i].Count();
        most = std::max(most, counts[i]);
    }
    // next[most - count]: where the next word with that count goes.
    std::vector<std::size_t> next(static_cast<std::size_t>(most) + 1, 0);
    for (const int count : counts)
        ++next[most - count];
    std::size_t start = 0;
    for (std::size_t& at : next)
        start += std::exchange(at, start);
    std::vector<std::size_t> order(found.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        order[next[most - counts[i]]++] = i;
    for (const std::size_t i : order)
        words.push_back(std::move(found[i]));
}

void NumberGroup(WordList& words, int first) {
    for (int i = first; i < static_cast<int>(words.size()); ++i)
        words[i].SetRank(i - first + 1);
}

// Symbols are positive, so these keys compare as the symbols do, the first symbol of a pair first.
std::uint64_t SymbolKey(std::int32_t symbol) {
    return static_cast<std::uint32_t>(symbol);
}
std::uint64_t PairKey(std::int32_t first, std::int32_t second) {
    return SymbolKey(first) << 32 | SymbolKey(second);
}
std::vector<std::int32_t> SymbolOfKey(std::uint64_t key) {
    return {0, static_cast<std::int32_t>(key)};
}
std::vector<std::int32_t> PairOfKey(std::uint64_t key) {
    return {0, static_cast<std::int32_t>(key >> 32), static_cast<std::int32_t>(key & 0xFFFFFFFFU)};
}

double CountBlocks(const SequenceSet& sequences, int length) {
    double blocks = 0;
    for (const auto& sequence : sequences)
        blocks += std::max(SequenceLength(sequence) - length + 1, 0);
    return blocks;
}

// The words of length 1 or 2, ordered by falling count and then by their symbols. They are
// counted from the sequences themselves, so a resumed search finds the same pairs as a fresh one.
// Answers false when cancelled; the list is changed only once counting is done.
bool SearchShortWords(const SequenceSet& sequences, WordList& words, int length, const std::string& status_name,
                      const ProgressFn& progress) {
    SearchProgress meter(progress, StepText(status_name, length), CountBlocks(sequences, length));
    if (meter.Start()) return false;
    ChildGrouping grouping;
    for (std::size_t s = 0; s < sequences.size(); ++s) {
        const auto& sequence = sequences[s];
        for (int p = 1; p + length - 1 <= SequenceLength(sequence); ++p) {
            const std::uint64_t key = length == 1 ? SymbolKey(sequence[p]) : PairKey(sequence[p], sequence[p + 1]);
            grouping.Add(key, Occurrence{p, static_cast<std::int32_t>(s)});
            if (meter.Advance(1)) return false;
        }
    }
    WordList found;
    grouping.AppendRepeatedChildren(ChildOrder::kByKey, length == 1 ? SymbolOfKey : PairOfKey, found);
    const int first = static_cast<int>(words.size());
    AppendByFallingCount(found, words);
    NumberGroup(words, first);
    return true;
}

constexpr std::uint64_t kSequenceEnd = std::numeric_limits<std::uint64_t>::max();

// The symbol after every occurrence of the parents, in list order (kSequenceEnd where the
// occurrence ends its sequence). These reads land all over the sequences; made in one sweep with
// nothing waiting on them, they overlap instead of stalling the grouping one by one.
std::vector<std::uint64_t> NextSymbolKeys(const SequenceSet& sequences, const WordList& words, int first_parent,
                                          int last_parent) {
    std::size_t total = 0;
    for (int parent = first_parent; parent <= last_parent; ++parent)
        total += static_cast<std::size_t>(words[parent].Count());
    std::vector<std::uint64_t> keys(total);
    std::uint64_t* key = keys.data();
    for (int parent = first_parent; parent <= last_parent; ++parent) {
        const WordRecord& word = words[parent];
        const int length = word.Length();
        const std::span<const Occurrence> occurrences(word.positions.data() + 1, word.Count());
        for (const Occurrence occurrence : occurrences) {
            const auto& sequence = sequences[occurrence.sequence_index];
            const bool ends_sequence = occurrence.position + length > SequenceLength(sequence);
            *key++ = ends_sequence ? kSequenceEnd : SymbolKey(sequence[occurrence.position + length]);
        }
    }
    return keys;
}

// A child's symbols as its parent's followed by its key's symbol: the parent's are at hand, where
// those at the child's first occurrence would be one more read far away.
ChildSymbols ParentAndNextSymbol(const WordRecord& parent) {
    return [&parent](std::uint64_t key) {
        std::vector<std::int32_t> symbols;
        symbols.reserve(parent.symbols.size() + 1);
        symbols.assign(parent.symbols.begin(), parent.symbols.end());
        symbols[0] = 0;  // a grammar rule's own code stays with the rule
        symbols.push_back(static_cast<std::int32_t>(key));
        return symbols;
    };
}

// Extends the words of the greatest length (the run of them at the end of the list, in list
// order, whatever their ranks) by one symbol. A parent's occurrences are real ones, so those
// followed by the same symbol are the occurrences of one child; each parent's children are found
// in the order of their first occurrences, and the group is then ordered by falling count.
// Answers false when cancelled or when no longer word repeats.
bool ExtendLastGroup(const SequenceSet& sequences, WordList& words, int length, const std::string& status_name,
                     const ProgressFn& progress) {
    const int last_parent = static_cast<int>(words.size()) - 1;
    int first_parent = last_parent;
    while (first_parent > 1 && words[first_parent - 1].Length() == length)
        --first_parent;
    double estimate = 0;
    for (int parent = first_parent; parent <= last_parent; ++parent)
        estimate += std::max(words[parent].Count() - 1, 0);
    SearchProgress meter(progress, StepText(status_name, length + 1), estimate);
    if (meter.Start()) return false;

    const std::vector<std::uint64_t> next_keys = NextSymbolKeys(sequences, words, first_parent, last_parent);
    std::size_t next = 0;
    WordList found;
    ChildGrouping grouping;
    for (int parent = first_parent; parent <= last_parent; ++parent) {
        const WordRecord& word = words[parent];
        grouping.Clear();
        for (int j = 1; j <= word.Count(); ++j, ++next) {
            if (next_keys[next] != kSequenceEnd) grouping.Add(next_keys[next], word.positions[j]);
        }
        grouping.AppendRepeatedChildren(ChildOrder::kFirstSeen, ParentAndNextSymbol(word), found);
        if (meter.Advance(std::max(word.Count() - 1, 0))) {
            // The words found so far stay, ordered but unranked, as the group is incomplete.
            AppendByFallingCount(found, words);
            return false;
        }
    }
    const int group_start = last_parent + 1;
    AppendByFallingCount(found, words);
    NumberGroup(words, group_start);
    progress("", 1);
    return static_cast<int>(words.size()) > group_start;
}

}  // namespace

void FindWords(const SequenceSet& sequences, WordList& words, std::int32_t max_length, const std::string& status_name,
               const ProgressFn& progress) {
    if (words.empty()) words.resize(1);
    int length = LastLength(words);
    if (length >= 1 && length == max_length) return;
    if (length < 1) {
        if (!SearchShortWords(sequences, words, 1, status_name, progress) || max_length == 1) return;
        length = 1;
    }
    // Pairs are searched whatever the bound; the bound is tested for excess only from length 3 on.
    if (length == 1) {
        if (!SearchShortWords(sequences, words, 2, status_name, progress)) return;
        progress("", 1);
        length = LastLength(words);
    }
    while (length >= 1 && length < max_length) {
        if (!ExtendLastGroup(sequences, words, length, status_name, progress)) return;
        ++length;
    }
}

}  // namespace tessarin
