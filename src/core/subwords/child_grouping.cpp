#include "subwords/child_grouping.h"

#include <algorithm>

namespace tessarin {

void ChildGrouping::Clear() {
    numbering_.Clear();
    children_.clear();
    occurrences_.clear();
    child_of_occurrence_.clear();
}

void ChildGrouping::AppendRepeatedChildren(ChildOrder order, const ChildSymbols& symbols, WordList& words) {
    repeated_.clear();
    for (int child = 0; child < static_cast<int>(children_.size()); ++child) {
        if (children_[child].count >= 2) repeated_.push_back(child);
    }
    if (order == ChildOrder::kByKey) {
        std::sort(repeated_.begin(), repeated_.end(),
                  [this](int a, int b) { return numbering_.Key(a) < numbering_.Key(b); });
    }
    for (const int child : repeated_) {
        Child& repeated = children_[child];
        WordRecord word;
        word.symbols = symbols(numbering_.Key(child));
        word.positions.reserve(static_cast<std::size_t>(repeated.count) + 1);
        word.positions.push_back(Occurrence{repeated.count, 0});
        repeated.word_index = static_cast<std::int32_t>(words.size());
        words.push_back(std::move(word));
    }
    for (std::size_t i = 0; i < occurrences_.size(); ++i) {
        if (const int index = children_[child_of_occurrence_[i]].word_index; index != kNoWord) {
            words[index].positions.push_back(occurrences_[i]);
        }
    }
}

}  // namespace tessarin
