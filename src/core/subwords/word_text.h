#pragma once

#include <string>

#include "sequence/current_sequence.h"
#include "subwords/word_record.h"

namespace tessarin {

// The text of a word: the alphabet character of each of its symbols 1..L.
std::string WordToText(const WordRecord& word, const CurrentSequence& sequence);

}  // namespace tessarin
