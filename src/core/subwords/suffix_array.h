#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "subwords/progress_meter.h"

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
// length. The common prefixes follow in one more pass in text order (Kasai et al. 2001, as
// Kärkkäinen, Manzini and Puglisi 2009 permute it). Every pass counts one unit on `meter` per
// symbol it visits, so that a long text reports progress and can be cancelled part-way through any
// pass; nothing is returned once the meter answers that the user cancelled.
std::optional<SuffixArray> BuildSuffixArray(std::span<const std::int32_t> text, std::int32_t alphabet_size,
                                            ProgressMeter& meter);

// About how many units BuildSuffixArray counts for a text of `length` symbols: some ten passes
// over each level of the recursion, whose levels shrink to below a third on ordinary texts.
double SuffixArrayUnits(std::size_t length);

}  // namespace tessarin
