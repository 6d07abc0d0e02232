#pragma once

#include <cstdint>
#include <string>

#include "sequence/current_sequence.h"
#include "subwords/word_record.h"

namespace tessarin {

// A terminal (1..K) as its alphabet character; any other code, the start code 0 included, as "[code]".
std::string SymbolText(std::int32_t code, const CurrentSequence& sequence);

// The right-hand side of a rule, symbol after symbol with nothing between.
std::string RuleText(const WordRecord& rule, const CurrentSequence& sequence);

// "[code] -> {right-hand side}", as the report lists the rules.
std::string RuleLine(const WordRecord& rule, const CurrentSequence& sequence);

}  // namespace tessarin
