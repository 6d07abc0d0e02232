#include "subwords/find_words.h"

#include <algorithm>

#include "logfile/number_text.h"

namespace tessarin {
namespace {

// Moves the word at `index` towards `group_start` past every word with a strictly smaller
// count, so a group stays ordered by falling count and ties keep their order.
void MoveForwardByCount(WordList& words, int group_start, int index) {
    WordRecord moving = std::move(words[index]);
    int at = index;
    while (at > group_start && words[at - 1].Count() < moving.Count()) {
        words[at] = std::move(words[at - 1]);
        --at;
    }
    words[at] = std::move(moving);
}

void SortAndNumberGroup(WordList& words, int first, int last) {
    for (int i = first + 1; i <= last; ++i)
        MoveForwardByCount(words, first, i);
    for (int i = first; i <= last; ++i)
        words[i].SetRank(i - first + 1);
}

int LargestSymbol(const SequenceSet& sequences) {
    int largest = 0;
    for (const auto& sequence : sequences) {
        for (int p = 1; p <= SequenceLength(sequence); ++p)
            largest = std::max(largest, sequence[p]);
    }
    return largest;
}

WordRecord NewWord(std::vector<std::int32_t> symbols, int count) {
    WordRecord word;
    word.symbols = std::move(symbols);
    word.positions.assign(1, Occurrence{count, 0});
    word.positions.reserve(static_cast<std::size_t>(count) + 1);
    return word;
}

bool SearchLength1(const SequenceSet& sequences, WordList& words, const std::string& status_name,
                   const ProgressFn& progress) {
    if (progress(status_name + ": Find Words len = 1", 0)) return false;
    const int largest = LargestSymbol(sequences);
    std::vector<int> table(static_cast<std::size_t>(largest) + 1, 0);
    for (const auto& sequence : sequences) {
        for (int p = 1; p <= SequenceLength(sequence); ++p)
            ++table[sequence[p]];
    }
    const int first = static_cast<int>(words.size());
    for (int c = 1; c <= largest; ++c) {
        if (table[c] >= 2) {
            words.push_back(NewWord({0, c}, table[c]));
            table[c] = static_cast<int>(words.size()) - 1;
        } else {
            table[c] = 0;
        }
    }
    for (std::size_t s = 0; s < sequences.size(); ++s) {
        for (int p = 1; p <= SequenceLength(sequences[s]); ++p) {
            if (const int index = table[sequences[s][p]]; index != 0) {
                words[index].positions.push_back(Occurrence{p, static_cast<std::int32_t>(s)});
            }
        }
    }
    SortAndNumberGroup(words, first, static_cast<int>(words.size()) - 1);
    progress("", 1);
    return true;
}

bool SearchLength2(const SequenceSet& sequences, WordList& words, const std::string& status_name,
                   const ProgressFn& progress) {
    const std::string text = status_name + ": Find Words len = 2";
    if (progress(text, 0)) return false;
    const std::size_t side = static_cast<std::size_t>(LargestSymbol(sequences)) + 1;
    std::vector<int> table(side * side, 0);
    for (const auto& sequence : sequences) {
        for (int p = 1; p < SequenceLength(sequence); ++p)
            ++table[sequence[p] * side + sequence[p + 1]];
    }
    const int first = static_cast<int>(words.size());
    for (std::size_t a = 1; a < side; ++a) {
        for (std::size_t b = 1; b < side; ++b) {
            int& cell = table[a * side + b];
            if (cell > 1) {
                words.push_back(NewWord({0, static_cast<std::int32_t>(a), static_cast<std::int32_t>(b)}, cell));
                cell = static_cast<int>(words.size()) - 1;
            } else {
                cell = 0;
            }
        }
    }
    for (std::size_t s = 0; s < sequences.size(); ++s) {
        const auto& sequence = sequences[s];
        for (int p = 1; p < SequenceLength(sequence); ++p) {
            if (const int index = table[sequence[p] * side + sequence[p + 1]]; index != 0) {
                words[index].positions.push_back(Occurrence{p, static_cast<std::int32_t>(s)});
            }
        }
        if (progress(text, 0.5F)) return false;
    }
    SortAndNumberGroup(words, first, static_cast<int>(words.size()) - 1);
    progress("", 1);
    return true;
}

bool MatchesAt(const WordRecord& word, std::span<const std::int32_t> sequence, int p) {
    const int length = word.Length();
    if (p + length - 1 > SequenceLength(sequence)) return false;
    for (int k = length; k >= 1; --k) {
        if (word.symbols[k] != sequence[p + k - 1]) return false;
    }
    return true;
}

// Extends the words of length L (the run of words of the greatest length at the end of the
// list) by one symbol. Answers false when cancelled or when no word of length L + 1 repeats.
bool ExtendLastGroup(const SequenceSet& sequences, WordList& words, int length, const std::string& status_name,
                     const ProgressFn& progress) {
    const int new_length = length + 1;
    const std::string text = status_name + ": Find Words len =" + IntegerText(new_length);
    const int last_parent = static_cast<int>(words.size()) - 1;
    int first_parent = last_parent;
    while (first_parent > 1 && words[first_parent - 1].Length() == length)
        --first_parent;
    double estimate = 0;
    for (int i = first_parent; i <= last_parent; ++i)
        estimate += words[i].Count() - 1;
    double done = 0;
    if (progress(text, 0)) return false;

    const int group_start = last_parent + 1;
    for (int parent = first_parent; parent <= last_parent; ++parent) {
        const int count = words[parent].Count();
        for (int j = 1; j < count; ++j) {
            done += 1;
            if (progress(text, static_cast<float>(done / std::max(estimate, 1.0)))) return false;
            const Occurrence start = words[parent].positions[j];
            const auto& sequence = sequences[start.sequence_index];
            if (start.position + new_length - 1 > SequenceLength(sequence)) continue;
            WordRecord candidate = NewWord({0}, 1);
            candidate.symbols.insert(candidate.symbols.end(), sequence.begin() + start.position,
                                     sequence.begin() + start.position + new_length);
            candidate.positions.push_back(start);
            const bool known = std::any_of(words.begin() + group_start, words.end(),
                                           [&](const WordRecord& w) { return w.symbols == candidate.symbols; });
            if (known) continue;
            for (int later = j + 1; later <= count; ++later) {
                const Occurrence other = words[parent].positions[later];
                if (MatchesAt(candidate, sequences[other.sequence_index], other.position)) {
                    candidate.positions.push_back(other);
                }
            }
            candidate.SetCount(static_cast<int>(candidate.positions.size()) - 1);
            if (candidate.Count() >= 2) {
                words.push_back(std::move(candidate));
                MoveForwardByCount(words, group_start, static_cast<int>(words.size()) - 1);
            }
        }
    }
    const int last = static_cast<int>(words.size()) - 1;
    for (int i = group_start; i <= last; ++i)
        words[i].SetRank(i - group_start + 1);
    progress("", 1);
    return last >= group_start;
}

}  // namespace

void FindWords(const SequenceSet& sequences, WordList& words, std::int32_t max_length, const std::string& status_name,
               const ProgressFn& progress) {
    if (words.empty()) words.resize(1);
    int length = words.back().Length();
    if (words.size() == 1) length = 0;
    if (length >= 1 && length == max_length) return;
    if (length < 1) {
        if (!SearchLength1(sequences, words, status_name, progress) || max_length == 1) return;
        length = 1;
    }
    if (length == 1) {
        if (!SearchLength2(sequences, words, status_name, progress)) return;
        length = words.back().Length();
    }
    while (length != max_length && length + 1 <= max_length && length >= 1) {
        if (!ExtendLastGroup(sequences, words, length, status_name, progress)) return;
        ++length;
    }
}

}  // namespace tessarin
