#pragma once

#include <cstdint>
#include <string>

#include "grammar/grammar.h"
#include "sequence/alphabet.h"

namespace tessarin {

// A terminal (1..K) as its alphabet character; any other code, the start code 0 included, as "[code]".
std::string SymbolText(std::int32_t code, const Alphabet& alphabet);

// "[code] -> {right-hand side}", the right-hand side symbol after symbol with nothing between,
// as the report lists the rules.
std::string RuleLine(const Rule& rule, const Alphabet& alphabet);

}  // namespace tessarin
