#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sequence/current_sequence.h"

namespace tessarin {

// Symbol numbers at positions 1..n (index 0 is free; a grammar keeps a rule's code there).
using CodedSequence = std::vector<std::int32_t>;

// Numbers the distinct character codes of `counts` 1..K in ascending code order and stores them
// in the alphabet and the code table. `counts` has one entry per character code.
void BuildAlphabet(const std::vector<std::int64_t>& counts, CurrentSequence& sequence);

// Codes the text through the symbol code table, which must have been built from the same text.
CodedSequence EncodeSequence(const CurrentSequence& sequence, const std::string& text);

}  // namespace tessarin
