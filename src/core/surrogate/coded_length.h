#pragma once

#include <cstdint>
#include <span>

namespace tessarin {

// The length L of a coded sequence held at positions 1..L (0 for an empty array).
inline int CodedLength(std::span<const std::int32_t> coded) {
    return coded.empty() ? 0 : static_cast<int>(coded.size()) - 1;
}

}  // namespace tessarin
