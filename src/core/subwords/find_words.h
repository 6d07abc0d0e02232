#pragma once

#include <vector>

#include "subwords/subword_search.h"

namespace tessarin {

// Every subword of `sequences` that occurs at least twice, as SubwordSearch finds them, gathered
// into one list of groups by increasing length, for callers that need words of several lengths
// at once. Memory grows with the number of words (and occurrences, when kept): a report that
// handles one length at a time uses SubwordSearch itself. After a cancel the list holds the
// lengths completed before it.
std::vector<SubwordGroup> FindWords(const SequenceSet& sequences, const FindWordsParams& params,
                                    const ProgressFn& progress);

}  // namespace tessarin
