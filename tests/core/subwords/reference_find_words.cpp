#include "reference_find_words.h"

#include <algorithm>
#include <vector>

#include "logfile/number_text.h"

namespace tessarin::testing {
namespace {

int ArrayLength(const std::vector<std::int32_t>& array) {
    return array.empty() ? 0 : static_cast<int>(array.size()) - 1;
}

bool WordsEqual(const WordRecord& a, const WordRecord& b) {
    if (a.Length() != b.Length()) return false;
    for (int k = 1; k <= a.Length(); ++k) {
        if (a.symbols[k] != b.symbols[k]) return false;
    }
    return true;
}

bool WordMatchesAt(const WordRecord& word, std::span<const std::int32_t> sequence, int p) {
    const int length = word.Length();
    if (p + length - 1 > SequenceLength(sequence)) return false;
    if (length < 1) return true;
    for (int k = length; k >= 1; --k) {
        if (word.symbols[k] != sequence[p + k - 1]) return false;
    }
    return true;
}

// The word sequence[p..p+length-1] with a one-occurrence list; the occurrence keeps its sequence
// index, which callers searching several sequences rely on.
WordRecord ExtractWord(std::span<const std::int32_t> sequence, int sequence_index, int p, int length) {
    WordRecord word;
    word.symbols.assign(1, 0);
    for (int k = 0; k < length; ++k)
        word.symbols.push_back(sequence[p + k]);
    word.positions = {Occurrence{1, 0}, Occurrence{p, sequence_index}};
    return word;
}

WordRecord NewWord(std::vector<std::int32_t> symbols, int count) {
    WordRecord word;
    word.symbols = std::move(symbols);
    word.positions.assign(1, Occurrence{count, 0});
    return word;
}

int LargestSymbol(const SequenceSet& sequences) {
    int largest = 0;
    for (const auto& sequence : sequences) {
        for (int p = 1; p <= SequenceLength(sequence); ++p)
            largest = std::max(largest, sequence[p]);
    }
    return largest;
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

void SortAndNumberGroup(WordList& words, int first) {
    const int last = static_cast<int>(words.size()) - 1;
    for (int i = first + 1; i <= last; ++i)
        MoveForwardByCount(words, first, i);
    for (int i = first; i <= last; ++i)
        words[i].SetRank(i - first + 1);
}

std::string StepText(const std::string& status_name, int length) {
    return status_name + ": Find Words len =" + IntegerText(length);
}

// Progress is reported only while counting, before the list changes, so that a cancelled
// search leaves a list whose every word has all its occurrences.
bool SearchLength1(const SequenceSet& sequences, WordList& words, const std::string& status_name,
                   const ProgressFn& progress) {
    const std::string text = StepText(status_name, 1);
    double total = 0;
    for (const auto& sequence : sequences)
        total += SequenceLength(sequence);
    double done = 0;
    if (progress(text, 0)) return false;
    const int largest = LargestSymbol(sequences);
    std::vector<int> table(static_cast<std::size_t>(largest) + 1, 0);
    int repeated = 0;
    for (const auto& sequence : sequences) {
        for (int p = 1; p <= SequenceLength(sequence); ++p) {
            if (++table[sequence[p]] == 2) ++repeated;
            done += 1;
            if (progress(text, static_cast<float>(done / total))) return false;
        }
    }
    const int first = static_cast<int>(words.size());
    words.reserve(words.size() + repeated);
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
    SortAndNumberGroup(words, first);
    return true;
}

bool SearchLength2(const SequenceSet& sequences, WordList& words, const std::string& status_name,
                   const ProgressFn& progress) {
    const std::string text = StepText(status_name, 2);
    const std::size_t side = static_cast<std::size_t>(LargestSymbol(sequences)) + 1;
    double total = static_cast<double>(side) * static_cast<double>(side);
    for (const auto& sequence : sequences)
        total += 3.0 * std::max(SequenceLength(sequence) - 1, 0);
    double done = 0;
    if (progress(text, 0)) return false;
    std::vector<int> table(side * side, 0);
    int repeated = 0;
    for (const auto& sequence : sequences) {
        for (int p = 1; p < SequenceLength(sequence); ++p) {
            if (++table[sequence[p] * side + sequence[p + 1]] == 2) ++repeated;
            done += 1;
            if (progress(text, static_cast<float>(done / total))) return false;
        }
    }
    const int first = static_cast<int>(words.size());
    words.reserve(words.size() + repeated);
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
    }
    SortAndNumberGroup(words, first);
    progress("", 1);
    return true;
}

// Extends the words of the greatest length, the run of such words at the end of the list taken
// in list order, by one symbol. Answers false when cancelled or when no longer word repeats.
bool ExtendLastGroup(const SequenceSet& sequences, WordList& words, int length, const std::string& status_name,
                     const ProgressFn& progress) {
    const int new_length = length + 1;
    const std::string text = StepText(status_name, new_length);
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
            if (progress(text, static_cast<float>(done / estimate))) return false;
            const Occurrence start = words[parent].positions[j];
            const auto& sequence = sequences[start.sequence_index];
            if (start.position + new_length - 1 > SequenceLength(sequence)) continue;
            WordRecord candidate = ExtractWord(sequence, start.sequence_index, start.position, new_length);
            const bool known = std::any_of(words.begin() + group_start, words.end(),
                                           [&](const WordRecord& word) { return WordsEqual(word, candidate); });
            if (known) continue;
            for (int later = j + 1; later <= count; ++later) {
                const Occurrence other = words[parent].positions[later];
                if (WordMatchesAt(candidate, sequences[other.sequence_index], other.position)) {
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
    const int last = static_cast<int>(words.size()) - 1;
    for (int i = group_start; i <= last; ++i)
        words[i].SetRank(i - group_start + 1);
    progress("", 1);
    return last >= group_start;
}

}  // namespace

void ReferenceFindWords(const SequenceSet& sequences, WordList& words, std::int32_t max_length,
                        const std::string& status_name, const ProgressFn& progress) {
    if (words.empty()) words.resize(1);
    const int upper = static_cast<int>(words.size()) - 1;
    int length = upper == 0 ? 0 : ArrayLength(words[upper].symbols);
    if (length >= 1 && length == max_length) return;
    if (length < 1) {
        if (!SearchLength1(sequences, words, status_name, progress)) return;
        if (max_length == 1) return;
        length = 1;
    }
    if (length == 1) {
        if (!SearchLength2(sequences, words, status_name, progress)) return;
        length = words.size() <= 1 ? 0 : words.back().Length();
    }
    while (length >= 1 && length + 1 <= max_length) {
        if (!ExtendLastGroup(sequences, words, length, status_name, progress)) return;
        ++length;
    }
}

}  // namespace tessarin::testing
