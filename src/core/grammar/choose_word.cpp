#include "grammar/choose_word.h"

#include <cstdint>

namespace tessarin {
namespace {

// Steps back from the end of the list one group at a time, each group starting rank - 1 places
// before the word at hand, and hands each group's first word to `examine` until it answers true,
// a group would start below place 2, or its first word is shorter than 2 symbols. The group of
// single symbols is never examined: any step from inside it lands inside it again.
template <typename Examine>
void WalkRepresentatives(WordListView& list, Examine examine) {
    int i = list.WordCount();
    while (i >= 2) {
        const WordListView::Entry here = list.At(i);
        if (here.length < 2) return;
        const int start = i + 1 - here.rank;
        if (start < 2) return;
        const WordListView::Entry first = list.At(start, WordListView::Rank::kUnneeded);
        if (first.length < 2) return;
        if (examine(start, first)) return;
        i = start - 1;
    }
}

int ChooseNvogram(WordListView& list) {
    const int start = LastGroupStart(list);
    const WordListView::Entry first = list.At(start, WordListView::Rank::kUnneeded);
    if (first.length == 2 && first.count >= 3) return start;
    int chosen = 0;
    WalkRepresentatives(list, [&](int position, const WordListView::Entry& word) {
        if (word.count >= 2) chosen = position;
        return chosen != 0;
    });
    return chosen;
}

int ChooseShortestFirst(WordListView& list) {
    for (int position = LastGroupStart(list); position <= list.WordCount(); ++position) {
        const WordListView::Entry word = list.At(position, WordListView::Rank::kUnneeded);
        if ((word.length == 2 && word.count >= 3) || (word.length >= 3 && word.count >= 2)) return position;
    }
    return 0;
}

int ChooseLongestFirst(WordListView& list) {
    int chosen = 0;
    WalkRepresentatives(list, [&](int position, const WordListView::Entry& word) {
        if ((word.length == 2 && word.count > 2) || (word.length > 2 && word.count > 1)) chosen = position;
        return chosen != 0;
    });
    return chosen;
}

// Only a strictly greater gain replaces the best, so ties go to the word met first.
int ChooseMaximumGain(WordListView& list) {
    int chosen = 0;
    std::int64_t best_gain = 0;
    WalkRepresentatives(list, [&](int position, const WordListView::Entry& word) {
        const std::int64_t gain = Gain(word);
        if (gain > best_gain) {
            best_gain = gain;
            chosen = position;
        }
        return false;
    });
    return chosen;
}

}  // namespace

int LastGroupStart(WordListView& list) {
    const int last = list.WordCount();
    return last < 1 ? 0 : last + 1 - list.At(last).rank;
}

int ChooseWord(WordListView& list, Method method) {
    switch (method) {
        case Method::kNvogram:
            return ChooseNvogram(list);
        case Method::kShortestFirst:
            return ChooseShortestFirst(list);
        case Method::kLongestFirst:
            return ChooseLongestFirst(list);
        case Method::kMaximumGain:
            return ChooseMaximumGain(list);
    }
    return 0;
}

}  // namespace tessarin
