#include "surrogate/verify_pairs.h"

#include <algorithm>
#include <vector>

#include "surrogate/coded_length.h"

namespace tessarin {

bool VerifyPairs(std::span<const std::int32_t> original, std::span<const std::int32_t> surrogate, int alphabet_size) {
    const int length = CodedLength(original);
    if (CodedLength(surrogate) != length) return false;
    const auto side = static_cast<std::size_t>(alphabet_size) + 1;
    // Pairs of the original count up, those of the surrogate down: equal counts leave all zeros.
    std::vector<std::int32_t> balance(side * side, 0);
    for (int i = 1; i < length; ++i) {
        ++balance[original[i] * side + original[i + 1]];
        --balance[surrogate[i] * side + surrogate[i + 1]];
    }
    return std::all_of(balance.begin(), balance.end(), [](std::int32_t count) { return count == 0; });
}

}  // namespace tessarin
