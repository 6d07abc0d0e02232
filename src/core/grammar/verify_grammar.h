#pragma once

#include <cstdint>
#include <span>

#include "grammar/grammar.h"

namespace tessarin {

// True when expanding rule 0 down to terminals (1..alphabet_size) gives exactly `coded`
// (positions 1..n; index 0 is ignored, as in a CodedSequence): first the lengths must agree, then
// every symbol. A code that names no rule, or a rule that expands into itself, makes it false.
bool VerifyGrammar(std::span<const Rule> rules, std::span<const std::int32_t> coded, int alphabet_size);

}  // namespace tessarin
