#pragma once

#include "subwords/word_record.h"

namespace tessarin {

// Drops, for every word of length 2 or more, each occurrence that starts fewer than L positions
// after the last kept one in the same rule, stores the new count in the word's header and moves
// the word forward in its run of same-length words past every word with a lower count. Ranks
// travel with their words and are not renumbered.
void PruneOverlaps(WordList& words);

}  // namespace tessarin
