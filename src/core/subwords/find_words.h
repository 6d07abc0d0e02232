#pragma once

#include <cstdint>
#include <string>

#include "session/progress.h"
#include "subwords/word_record.h"

namespace tessarin {

inline constexpr std::int32_t kNoLengthLimit = 2147483647;

// Finds every subword of length 1..max_length that occurs at least twice in `sequences`, with all
// its occurrences, and stores them in `words` (see WordList for the order); pairs are searched
// whatever the bound unless it is 1, so a bound below 1 gives lengths 1 and 2. A fresh search takes
// a list holding only the scratch entry (or an empty one); a list that already ends with words of
// length L is carried on from L, extending those words, in list order, from the occurrences they
// list (which must be occurrences in `sequences`, though some may have been dropped). Symbols are
// positive; their range costs nothing, as they are hashed rather than used as table indices.
// Time and memory grow with the number of occurrences visited. Progress texts start with
// `status_name` (the sequence's base name); when `progress` answers that the user cancelled, the
// list is returned as it stands: its words are complete, those of the interrupted length unranked.
void FindWords(const SequenceSet& sequences, WordList& words, std::int32_t max_length, const std::string& status_name,
               const ProgressFn& progress);

}  // namespace tessarin
