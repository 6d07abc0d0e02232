#pragma once

#include "grammar/repeat_trie.h"

namespace tessarin {

// The list position of the first word of the last group, by the rank in the header of the list's
// last word (0 for an empty list). After pruning that rank may differ from the group's size;
// the arithmetic is kept as it is, because it decides which word the methods look at.
int LastGroupStart(RepeatTrie& list);

// The list position of the word that `method` makes the next rule, or 0 when none qualifies.
// The list must end with a word of 2 or more symbols.
int ChooseWord(RepeatTrie& list, int method);

}  // namespace tessarin
