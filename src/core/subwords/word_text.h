#pragma once

#include <string_view>

#include "sequence/current_sequence.h"
#include "subwords/subword_group.h"

namespace tessarin {

// The text of a word of `length` symbols of the current sequence: the characters of its symbols,
// read where it first occurs.
std::string_view WordToText(const CurrentSequence& sequence, const Subword& word, int length);

}  // namespace tessarin
