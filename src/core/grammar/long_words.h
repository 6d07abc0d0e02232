#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "grammar/repeat_trie.h"
#include "subwords/progress_meter.h"
#include "subwords/repeat_tree.h"

namespace tessarin {

// The repeated words of a grammar's rules longer than its trie's depth, which the trie does not
// hold, read off the stretches of the rules where they can occur. An occurrence of such a word of
// L symbols starts L - depth + 1 slots in a row whose paths reach the trie's depth, and takes the
// depth - 1 symbols after the last of them: those runs are all the suffix array is built over (80,000
// of a genome's 4.9 million symbols), so that its long repeats cost the trie no paths deeper than its
// depth.
// None of these words may overlap itself: each keeps every occurrence, and a walk over the whole
// list passes each length group at its first word.
class LongWords {
  public:
    // The search order of two nodes of the trie of one depth: whether the first comes first.
    using TrieBefore = std::function<bool(std::int32_t, std::int32_t)>;

    struct Word {
        int length = 0;
        std::vector<std::int32_t> starts;  // in text order

        std::int32_t Count() const { return static_cast<std::int32_t>(starts.size()); }
    };

    // Nothing once the meter answers that the user cancelled.
    static std::optional<LongWords> Read(const RepeatTrie& trie, TrieBefore before, ProgressMeter& meter);
    // The symbols read: what building the words cost.
    std::size_t Size() const { return slot_at_.size(); }

    // Longest First's pick: of the longest words, the first of the most frequent in the search.
    std::optional<Word> Longest() const;
    // Maximum Gain's: of the words that gain most, the first as the walk meets them (the longest,
    // then the first in the search), with that gain in `gain`.
    std::optional<Word> MostGain(std::int64_t& gain) const;

  private:
    LongWords(const RepeatTrie& trie, TrieBefore before, RepeatTree tree, std::vector<std::int32_t> slot_at,
              std::vector<std::int32_t> order);

    // Of the tree's nodes whose words of `length` symbols occur `count` times, the word that comes
    // first in the search.
    Word FirstInSearch(int length, std::int32_t count) const;
    // Whether the words of one length of nodes `a` and `b` come in this order in the search.
    bool Before(std::int32_t a, std::int32_t b) const;
    std::int32_t FirstSlot(std::int32_t node) const {
        return slot_at_[static_cast<std::size_t>(tree_.FirstStart(node))];
    }

    const RepeatTrie* trie_;
    TrieBefore before_;
    RepeatTree tree_;
    std::vector<std::int32_t> slot_at_;  // per place of the stretches read, its slot, -1 between stretches
    std::vector<std::int32_t> order_;    // the places in suffix order
    std::vector<std::int32_t> parent_;   // per tree node
    std::vector<std::int32_t> deep_;     // the tree's nodes deeper than the trie
};

}  // namespace tessarin
