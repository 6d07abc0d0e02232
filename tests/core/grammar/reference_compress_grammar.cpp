#include "core/grammar/reference_compress_grammar.h"

#include <cstdint>
#include <functional>

#include "core/subwords/reference_find_words.h"
#include "grammar/add_rule.h"
#include "grammar/prune_overlaps.h"
#include "subwords/find_words.h"

namespace tessarin::testing {
namespace {

void Search(const Grammar& grammar, WordList& words, std::int32_t length) {
    ReferenceFindWords(RuleSequences(grammar), words, length, "", NoProgress);
    PruneOverlaps(words);
}

int LastIndex(const WordList& words) {
    return static_cast<int>(words.size()) - 1;
}

// The first word of the group that ends at `last`, by the rank in the header of its last word.
int GroupStart(const WordList& words, int last) {
    return last + 1 - words[last].Rank();
}

int FirstCountOfLastGroup(const WordList& words) {
    if (LastIndex(words) < 1) return 0;
    return words[GroupStart(words, LastIndex(words))].Count();
}

int LastLength(const WordList& words) {
    return LastIndex(words) < 1 ? 0 : words.back().Length();
}

// Steps back from the end of the list one group at a time and hands each representative to
// `examine` until it answers true, the next group would start below index 2, or a
// representative is shorter than 2 symbols.
void WalkRepresentatives(const WordList& words, const std::function<bool(const WordRecord&)>& examine) {
    int i = LastIndex(words);
    while (i >= 1) {
        const int start = GroupStart(words, i);
        if (start < 2 || words[start].Length() < 2) return;
        if (examine(words[start])) return;
        i = start - 1;
    }
}

const WordRecord* ChooseWord(const WordList& words, int method) {
    const WordRecord* chosen = nullptr;
    switch (method) {
        case kNvogram: {
            const WordRecord& first = words[GroupStart(words, LastIndex(words))];
            if (first.Length() == 2 && first.Count() >= 3) return &first;
            WalkRepresentatives(words, [&](const WordRecord& word) {
                if (word.Count() >= 2) chosen = &word;
                return chosen != nullptr;
            });
            break;
        }
        case kShortestFirst:
            for (int i = GroupStart(words, LastIndex(words)); i <= LastIndex(words); ++i) {
                const WordRecord& word = words[i];
                if ((word.Length() == 2 && word.Count() >= 3) || (word.Length() >= 3 && word.Count() >= 2)) {
                    return &word;
                }
            }
            break;
        case kLongestFirst:
            WalkRepresentatives(words, [&](const WordRecord& word) {
                if ((word.Length() == 2 && word.Count() > 2) || (word.Length() > 2 && word.Count() > 1)) chosen = &word;
                return chosen != nullptr;
            });
            break;
        case kMaximumGain: {
            std::int64_t best_gain = 0;
            WalkRepresentatives(words, [&](const WordRecord& word) {
                const std::int64_t gain = std::int64_t{word.Length() - 1} * (word.Count() - 1) - 1;
                if (gain > best_gain) {
                    best_gain = gain;
                    chosen = &word;
                }
                return false;
            });
            break;
        }
        default:
            break;
    }
    return chosen;
}

}  // namespace

Grammar ReferenceCompressGrammar(Grammar grammar, int alphabet_size, int method) {
    std::int32_t code = alphabet_size;
    std::int32_t length = (method == kNvogram || method == kShortestFirst) ? 2 : kNoLengthLimit;
    WordList words;
    for (;;) {
        words.assign(1, WordRecord{});
        Search(grammar, words, length);
        while (length != kNoLengthLimit) {
            const int f = FirstCountOfLastGroup(words);
            if (method == kNvogram) {
                if (f > 2) break;
                length = kNoLengthLimit;
                words.assign(1, WordRecord{});
                Search(grammar, words, length);
            } else {
                if (length == 2 ? f > 2 : f > 1) break;
                if (LastLength(words) < length) break;
                ++length;
                Search(grammar, words, length);
            }
        }
        if (LastLength(words) < 2) return grammar;
        const WordRecord* chosen = ChooseWord(words, method);
        if (chosen == nullptr) return grammar;
        AddRule(grammar, *chosen, ++code);
    }
}

}  // namespace tessarin::testing
