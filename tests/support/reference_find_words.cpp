#include "support/reference_find_words.h"

#include <algorithm>
#include <map>

namespace tessarin::testing {
namespace {

// Word `word` at place p of `sequence`, compared from the last symbol to the first.
bool WordMatchesAt(const std::vector<std::int32_t>& word, std::span<const std::int32_t> sequence, int p) {
    const int length = static_cast<int>(word.size()) - 1;
    if (p + length - 1 > SequenceLength(sequence)) return false;
    for (int k = length; k >= 1; --k) {
        if (word[k] != sequence[p + k - 1]) return false;
    }
    return true;
}

// Insertion from the front of the group: each word moves up past every earlier word with a
// strictly smaller count, so equal counts keep their order.
void MoveForwardByCount(WordList& words, int group_start, int index) {
    WordRecord moving = std::move(words[index]);
    int at = index;
    while (at > group_start && words[at - 1].Count() < moving.Count()) {
        words[at] = std::move(words[at - 1]);
        --at;
    }
    words[at] = std::move(moving);
}

void NumberGroup(WordList& words, int first) {
    for (int i = first; i < static_cast<int>(words.size()); ++i)
        words[i].SetRank(i - first + 1);
}

// Lengths 1 and 2: every block counted in a table ordered by its symbols, as count tables indexed
// by symbol and by pair are; the repeated ones appended in table order, then sorted by count.
void SearchByTable(const SequenceSet& sequences, WordList& words, int length) {
    std::map<std::vector<std::int32_t>, std::vector<Occurrence>> table;
    for (std::size_t s = 0; s < sequences.size(); ++s) {
        const auto& sequence = sequences[s];
        for (int p = 1; p + length - 1 <= SequenceLength(sequence); ++p)
            table[{sequence.begin() + p, sequence.begin() + p + length}].push_back({p, static_cast<std::int32_t>(s)});
    }
    const int first = static_cast<int>(words.size());
    for (const auto& [symbols, occurrences] : table) {
        if (occurrences.size() < 2) continue;
        WordRecord& word = words.emplace_back();
        word.symbols.assign(1, 0);
        word.symbols.insert(word.symbols.end(), symbols.begin(), symbols.end());
        word.positions.assign(1, Occurrence{static_cast<std::int32_t>(occurrences.size()), 0});
        word.positions.insert(word.positions.end(), occurrences.begin(), occurrences.end());
        MoveForwardByCount(words, first, static_cast<int>(words.size()) - 1);
    }
    NumberGroup(words, first);
}

// Extends the words of the greatest length, the run of such words at the end of the list taken
// in list order, by one symbol: each occurrence but the last of each parent starts a candidate
// unless the candidate is known, and every later occurrence that matches it joins it. Answers
// false when no longer word repeats.
bool ExtendLastGroup(const SequenceSet& sequences, WordList& words, int length) {
    const int new_length = length + 1;
    const int last_parent = static_cast<int>(words.size()) - 1;
    int first_parent = last_parent;
    while (first_parent > 1 && words[first_parent - 1].Length() == length)
        --first_parent;
    const int group_start = last_parent + 1;
    for (int parent = first_parent; parent <= last_parent; ++parent) {
        const int count = words[parent].Count();
        for (int j = 1; j < count; ++j) {
            const Occurrence start = words[parent].positions[j];
            const auto& sequence = sequences[start.sequence_index];
            if (start.position + new_length - 1 > SequenceLength(sequence)) continue;
            WordRecord candidate;
            candidate.symbols.assign(1, 0);
            candidate.symbols.insert(candidate.symbols.end(), sequence.begin() + start.position,
                                     sequence.begin() + start.position + new_length);
            candidate.positions = {Occurrence{1, 0}, start};
            if (std::any_of(words.begin() + group_start, words.end(),
                            [&](const WordRecord& word) { return word.symbols == candidate.symbols; })) {
                continue;
            }
            for (int later = j + 1; later <= count; ++later) {
                const Occurrence other = words[parent].positions[later];
                if (WordMatchesAt(candidate.symbols, sequences[other.sequence_index], other.position)) {
                    candidate.positions.push_back(other);
                    candidate.SetCount(static_cast<int>(candidate.positions.size()) - 1);
                }
            }
            if (candidate.Count() >= 2) {
                words.push_back(std::move(candidate));
                MoveForwardByCount(words, group_start, static_cast<int>(words.size()) - 1);
            }
        }
    }
    NumberGroup(words, group_start);
    return static_cast<int>(words.size()) > group_start;
}

}  // namespace

void ReferenceFindWords(const SequenceSet& sequences, WordList& words, std::int32_t max_length) {
    if (words.empty()) words.resize(1);
    int length = words.size() == 1 ? 0 : words.back().Length();
    if (length >= 1 && length == max_length) return;
    if (length < 1) {
        SearchByTable(sequences, words, 1);
        if (max_length == 1) return;
        length = 1;
    }
    if (length == 1) {
        SearchByTable(sequences, words, 2);
        length = words.size() == 1 ? 0 : words.back().Length();
    }
    while (length >= 1 && length + 1 <= max_length && ExtendLastGroup(sequences, words, length))
        ++length;
}

}  // namespace tessarin::testing
