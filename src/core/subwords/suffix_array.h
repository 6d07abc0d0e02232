#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace tessarin {

// The suffixes of a text in increasing order, with the common prefix of each with the one before.
struct SuffixArray {
    std::vector<std::int32_t> order;  // order[i]: the start of the i-th smallest suffix
    std::vector<std::int32_t>
        common;  // common[i]: the common prefix of suffixes order[i - 1] and order[i]; common[0] = 0
};

// Sorts the suffixes of `text`, whose values lie in 0..alphabet_size - 1, by induced sorting
// (SA-IS, Nong, Zhang and Chan 2009): the suffixes that start a valley (LMS suffixes) are sorted
// first, through a text of their names one third or less as long when names repeat, and every
// other suffix is placed from them in two passes, so time and memory grow linearly with the
// length. The common prefixes follow in one more pass (Kasai et al. 2001). `next_level` is called
// with the length of each level of the recursion before it is sorted, and answers true to cancel;
// nothing is returned then.
std::optional<SuffixArray> BuildSuffixArray(std::span<const std::int32_t> text, std::int32_t alphabet_size,
                                            const std::function<bool(std::int32_t length)>& next_level);

}  // namespace tessarin
