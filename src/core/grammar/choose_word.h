#pragma once

#include <cstdint>

#include "grammar/method.h"
#include "grammar/word_list_view.h"

namespace tessarin {

// The list position of the first word of the last group, reckoned from the search rank of the
// list's last word (0 for an empty list). Once the overlaps are dropped that rank may differ from
// the group's size, and the reckoning then lands elsewhere; the golden reports and the reference
// compression in the tests fix which word each method looks at, so it is kept.
int LastGroupStart(WordListView& list);

// What Maximum Gain reckons a word saves: f occurrences replaced by one symbol each, less the
// new rule's L symbols.
inline std::int64_t Gain(const WordListView::Entry& word) {
    return std::int64_t{word.length - 1} * (word.count - 1) - 1;
}

// The list position of the word that `method` makes the next rule, or 0 when none qualifies.
// The list must end with a word of 2 or more symbols.
int ChooseWord(WordListView& list, Method method);

}  // namespace tessarin
