#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "subwords/first_seen_numbering.h"
#include "subwords/word_record.h"

namespace tessarin {

// The order in which the repeated children of a word join the list.
enum class ChildOrder {
    kByKey,      // increasing key, that is symbol order: lengths 1 and 2
    kFirstSeen,  // order of each child's first occurrence: lengths 3 and more
};

// The symbols 0..L of the child named by a key (entry 0 is 0).
using ChildSymbols = std::function<std::vector<std::int32_t>(std::uint64_t key)>;

// Splits the occurrences of a word by what follows each of them into the word's children, the
// longer words that start with it; the single symbols and the pairs are children of the empty
// word. One pass over the occurrences finds every child with all its occurrences, where
// comparing each occurrence with all later ones would cost the square of their number.
class ChildGrouping {
  public:
    // Forgets the occurrences added so far.
    void Clear();

    // Adds the next occurrence of the word, followed by `key` (the symbol or symbols after it).
    // Occurrences must be added in increasing (sequence index, position) order.
    void Add(std::uint64_t key, Occurrence occurrence) {
        const int child = numbering_.Number(key);
        if (child == static_cast<int>(children_.size())) children_.push_back(Child{});
        ++children_[child].count;
        occurrences_.push_back(occurrence);
        child_of_occurrence_.push_back(child);
    }

    // Appends to `words`, in `order`, a word for each child that occurs at least twice, with the
    // symbols `symbols` gives for its key, all its occurrences, its count in the header and rank 0.
    void AppendRepeatedChildren(ChildOrder order, const ChildSymbols& symbols, WordList& words);

  private:
    static constexpr std::int32_t kNoWord = -1;

    struct Child {
        std::int32_t count = 0;
        std::int32_t word_index = kNoWord;  // list index of the child's word
    };

    FirstSeenNumbering numbering_;  // key -> child
    std::vector<Child> children_;
    std::vector<Occurrence> occurrences_;
    std::vector<std::int32_t> child_of_occurrence_;
    std::vector<std::int32_t> repeated_;
};

}  // namespace tessarin
