#pragma once

#include <cstdint>
#include <span>

#include "session/random_generator.h"

namespace tessarin {

// Shuffles `coded` (positions 1..L, index 0 ignored) in place by `swaps` exchanges of two
// different random positions; a sequence of fewer than 2 symbols is left as it is. The surrogate
// runs pass L swaps, which does not make every order equally likely.
void ShuffleSymbols(std::span<std::int32_t> coded, int swaps, RandomGenerator& random);

// Shuffles `coded` in place so that every order of its symbols is equally likely (Durstenfeld's
// form of the Fisher-Yates shuffle).
void ShuffleSymbolsUniformly(std::span<std::int32_t> coded, RandomGenerator& random);

}  // namespace tessarin
