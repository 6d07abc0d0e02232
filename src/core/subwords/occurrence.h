#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tessarin {

// Where a word occurs: its first symbol's 1-based position in sequence `sequence_index` (0-based).
struct Occurrence {
    std::int32_t position = 0;
    std::int32_t sequence_index = 0;
};

// Coded sequences searched together; each is indexed from 1 (index 0 is ignored).
using SequenceSet = std::vector<std::span<const std::int32_t>>;

// The length of a 1-based sequence (0 for an empty array).
inline int SequenceLength(std::span<const std::int32_t> sequence) {
    return sequence.empty() ? 0 : static_cast<int>(sequence.size()) - 1;
}

}  // namespace tessarin
