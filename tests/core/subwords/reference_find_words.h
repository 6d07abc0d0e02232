#pragma once

#include <cstdint>
#include <string>

#include "session/progress.h"
#include "subwords/word_record.h"

namespace tessarin::testing {

// FindWords done step by step in the slow, obvious way: count tables over every symbol and every
// pair of symbols, and from length 3 on each occurrence of a parent compared with all its later
// ones. Tests compare the fast search with it; it is meant to be read, not to be quick.
void ReferenceFindWords(const SequenceSet& sequences, WordList& words, std::int32_t max_length,
                        const std::string& status_name, const ProgressFn& progress);

}  // namespace tessarin::testing
