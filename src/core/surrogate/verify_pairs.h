#pragma once

#include <cstdint>
#include <span>

namespace tessarin {

// True when both coded sequences (positions 1..L) have the same length and every ordered pair of
// neighbouring symbols occurs equally often in both. Symbols lie in 0..alphabet_size; a 0 left by
// a failed walk counts as a symbol of its own.
bool VerifyPairs(std::span<const std::int32_t> original, std::span<const std::int32_t> surrogate, int alphabet_size);

}  // namespace tessarin
