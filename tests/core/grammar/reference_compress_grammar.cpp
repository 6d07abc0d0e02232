#include "core/grammar/reference_compress_grammar.h"

#include <functional>
#include <utility>

#include "support/reference_find_words.h"

namespace tessarin::testing {
namespace {

constexpr std::int32_t kNoLengthLimit = 2147483647;  // the working length that means "longest possible"

// Rule r as a word record: symbols[0] its code, symbols[1..L] its right-hand side.
using RecordGrammar = std::vector<WordRecord>;

// For each word of 2 or more symbols: drops each occurrence that starts fewer than L places after
// the last one kept in the same rule, then moves the word forward in its run of same-length words
// past every word with a lower count. Ranks travel with their words.
void PruneOverlaps(WordList& words) {
    for (std::size_t i = 1; i < words.size(); ++i) {
        WordRecord& word = words[i];
        if (word.Length() < 2) continue;
        std::size_t kept = 0;
        for (std::size_t j = 1; j < word.positions.size(); ++j) {
            const Occurrence& at = word.positions[j];
            const Occurrence& last = word.positions[kept];
            if (kept > 0 && at.sequence_index == last.sequence_index && at.position - last.position < word.Length()) {
                continue;
            }
            word.positions[++kept] = at;
        }
        word.positions.resize(kept + 1);
        word.SetCount(static_cast<int>(kept));
        for (std::size_t at = i;
             at > 1 && words[at - 1].Length() == words[at].Length() && words[at - 1].Count() < words[at].Count();
             --at) {
            std::swap(words[at - 1], words[at]);
        }
    }
}

void Search(const RecordGrammar& grammar, WordList& words, std::int32_t length) {
    SequenceSet rules;
    for (const WordRecord& rule : grammar)
        rules.emplace_back(rule.symbols);
    ReferenceFindWords(rules, words, length);
    PruneOverlaps(words);
}

// Appends `word` as rule `code` and replaces its occurrences from the last to the first, so that
// the earlier positions stay valid.
void AddRule(RecordGrammar& grammar, const WordRecord& word, std::int32_t code) {
    WordRecord rule;
    rule.symbols = word.symbols;
    rule.symbols[0] = code;
    grammar.push_back(std::move(rule));
    for (int j = word.Count(); j >= 1; --j) {
        std::vector<std::int32_t>& symbols = grammar[word.positions[j].sequence_index].symbols;
        const auto at = symbols.begin() + word.positions[j].position;
        symbols.erase(at + 1, at + word.Length());
        *at = code;
    }
}

int LastIndex(const WordList& words) {
    return static_cast<int>(words.size()) - 1;
}

// The first word of the group that ends at `last`, by the rank in the header of its last word.
int GroupStart(const WordList& words, int last) {
    return last + 1 - words[last].Rank();
}

int FirstCountOfLastGroup(const WordList& words) {
    return LastIndex(words) < 1 ? 0 : words[GroupStart(words, LastIndex(words))].Count();
}

int LastLength(const WordList& words) {
    return LastIndex(words) < 1 ? 0 : words.back().Length();
}

// Steps back from the end of the list one group at a time and hands each group's first word to
// `examine` until it answers true, the next group would start below index 2, or that word is
// shorter than 2 symbols.
void WalkRepresentatives(const WordList& words, const std::function<bool(const WordRecord&)>& examine) {
    for (int i = LastIndex(words); i >= 1;) {
        const int start = GroupStart(words, i);
        if (start < 2 || words[start].Length() < 2 || examine(words[start])) return;
        i = start - 1;
    }
}

const WordRecord* ChooseWord(const WordList& words, Method method) {
    const WordRecord* chosen = nullptr;
    switch (method) {
        case Method::kNvogram: {
            const WordRecord& first = words[GroupStart(words, LastIndex(words))];
            if (first.Length() == 2 && first.Count() >= 3) return &first;
            WalkRepresentatives(words, [&](const WordRecord& word) {
                if (word.Count() >= 2) chosen = &word;
                return chosen != nullptr;
            });
            break;
        }
        case Method::kShortestFirst:
            for (int i = GroupStart(words, LastIndex(words)); i <= LastIndex(words); ++i) {
                const WordRecord& word = words[i];
                if ((word.Length() == 2 && word.Count() >= 3) || (word.Length() >= 3 && word.Count() >= 2)) {
                    return &word;
                }
            }
            break;
        case Method::kLongestFirst:
            WalkRepresentatives(words, [&](const WordRecord& word) {
                if ((word.Length() == 2 && word.Count() > 2) || (word.Length() > 2 && word.Count() > 1)) chosen = &word;
                return chosen != nullptr;
            });
            break;
        case Method::kMaximumGain: {
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
    }
    return chosen;
}

RecordGrammar Compress(RecordGrammar grammar, int alphabet_size, Method method) {
    std::int32_t code = alphabet_size;
    std::int32_t length = (method == Method::kNvogram || method == Method::kShortestFirst) ? 2 : kNoLengthLimit;
    WordList words;
    for (;;) {
        words.assign(1, WordRecord{});
        Search(grammar, words, length);
        while (length != kNoLengthLimit) {
            const int f = FirstCountOfLastGroup(words);
            if (method == Method::kNvogram) {
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

}  // namespace

std::vector<Rule> ReferenceCompressGrammar(std::span<const std::int32_t> coded, int alphabet_size, Method method) {
    RecordGrammar start(1);
    start[0].symbols.assign(coded.begin(), coded.end());
    start[0].symbols[0] = 0;
    std::vector<Rule> rules;
    for (const WordRecord& record : Compress(std::move(start), alphabet_size, method))
        rules.push_back(Rule{record.symbols[0], {record.symbols.begin() + 1, record.symbols.end()}});
    return rules;
}

}  // namespace tessarin::testing
