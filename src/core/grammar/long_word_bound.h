#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>

#include "grammar/overlapping_words.h"
#include "subwords/progress_meter.h"
#include "subwords/suffix_array.h"

namespace tessarin {

// The most that a word longer than the short ones could gain under Maximum Gain, for the passes
// that look at the short words only.
struct LongWordBound {
    int short_length = 0;  // the short words have up to this many symbols
    // The greatest (L - 1)(count - 1) - 1 over the longer words that repeat, occurrences that
    // overlap counted; the least number when none repeats.
    std::int64_t most_gain = std::numeric_limits<std::int64_t>::min();
};

// The short lengths that BoundLongWords may take. Shorter ones would leave the bound to the most
// frequent words instead of the long repeats. A genome's tandem repeats make words of a hundred
// symbols and more overlap themselves (158 on E. coli 536); a trie that deep holds a long repeat in
// a fraction of the nodes.
inline constexpr int kLeastShortLength = 12;
inline constexpr int kMostShortLength = 256;

// Reads the bound off the suffix array of `symbols` (values 1..alphabet_size - 1), taking as
// short length the least from `least_short` up at which no longer word occurs twice with the two
// occurrences overlapping. Nothing when that length would exceed `most_short`, when finding it
// would cost more than a few passes over the sequence (long runs of one symbol), or when the
// meter answers that the user cancelled (then `cancelled` is set). The suffix array it sorts, if
// any, is left in `suffixes`, and with a bound the words longer than `least_short` that overlap
// themselves in `overlapping`, for a trie of the same symbols to be built from.
std::optional<LongWordBound> BoundLongWords(std::span<const std::int32_t> symbols, std::int32_t alphabet_size,
                                            int least_short, int most_short, ProgressMeter& meter, bool& cancelled,
                                            std::optional<SuffixArray>& suffixes, OverlappingWords& overlapping);

}  // namespace tessarin
