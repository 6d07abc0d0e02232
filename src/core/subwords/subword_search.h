#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "session/progress.h"
#include "subwords/progress_meter.h"
#include "subwords/repeat_tree.h"
#include "subwords/subword_group.h"

namespace tessarin {

// A maximum word length that sets no limit.
inline constexpr std::int32_t kNoLengthLimit = 2147483647;

struct FindWordsParams {
    // The greatest word length to search. Pairs are searched whatever the bound unless it is 1,
    // so a bound below 1 gives lengths 1 and 2.
    std::int32_t max_length = kNoLengthLimit;
    bool positions = false;   // keep every word's occurrences
    std::string status_name;  // starts the progress texts: the sequence's base name
};

// A symbol that follows some of a word's occurrences, and how many.
struct Successor {
    std::int32_t symbol = 0;
    std::int32_t count = 0;
};

// Finds every subword that occurs at least twice in a set of coded sequences, one length after
// the other: each call of NextGroup builds the words of the next length from those of the last
// and drops those. Memory grows with the sequences' total length, not with the number of words
// or occurrences: the search indexes the text once by its sorted suffixes, whose branching
// points (RepeatTree) hold every repeated word, and a group only names the branching points of
// its words; only occurrences asked for are listed, and only for the current group. Symbols are
// positive 32-bit numbers; their range costs nothing. The sequences may be dropped once the
// search is made. Progress texts are "<status name>: Find Words len = <L>", each length closed
// with an empty text and fraction 1; when `progress` answers that the user cancelled, the search
// stops and NextGroup answers nothing from then on.
class SubwordSearch {
  public:
    SubwordSearch(const SequenceSet& sequences, FindWordsParams params, ProgressFn progress);

    // The words of the next length, valid until the next call; nothing once a length has no
    // repeated word, the bound is passed, or the user has cancelled.
    const SubwordGroup* NextGroup();

    bool Cancelled() const { return cancelled_; }

    // Every occurrence of word `index` of the current group in increasing (sequence index,
    // position) order, for a report that needs the positions of only a few words.
    std::vector<Occurrence> Occurrences(std::size_t index) const;

    // The symbols that follow the occurrences of word `index` of the current group, in increasing
    // order; occurrences that end their sequence are followed by none.
    void Successors(std::size_t index, std::vector<Successor>& successors) const;

  private:
    // A word of a group: its tree node, the index of its parent in the group before, and what
    // the group needs of the node, carried along while the node stands for longer words.
    struct Entry {
        std::int32_t node;
        std::int32_t parent;
        std::int32_t count;
        std::int32_t depth;
        std::int32_t first_start;
    };

    Entry EntryOf(std::int32_t node, std::int32_t parent) const;
    // Stable by falling count: by counting where the counts are small beside the group's size,
    // as they are from the middle lengths on, else by merging.
    static void SortByFallingCount(std::vector<Entry>& entries);
    // Numbers the symbols by rank and the separators above them; false when cancelled.
    bool RankSymbols(ProgressMeter& meter);
    // False when cancelled.
    bool BuildIndex();
    // The occurrence that starts at `start` in the joined text.
    Occurrence OccurrenceAt(std::int32_t start) const;
    void ListOccurrences(std::int32_t node, std::vector<Occurrence>& occurrences) const;
    std::string StepText(int length) const;

    FindWordsParams params_;
    ProgressFn progress_;
    // The sequences joined, each followed by a separator of its own; symbols as their ranks
    // 0..symbols_.size() - 1, separators above.
    std::vector<std::int32_t> text_;
    std::vector<std::int32_t> symbols_;  // the symbol of each rank, increasing
    std::vector<std::int32_t> starts_;   // where each sequence starts in text_
    std::vector<std::int32_t> order_;    // the suffixes of text_ in increasing order
    std::optional<RepeatTree> tree_;
    SubwordGroup group_;
    std::vector<Entry> entries_;  // the words of group_
    bool finished_ = false;
    bool cancelled_ = false;
};

}  // namespace tessarin
