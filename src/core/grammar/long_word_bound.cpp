#include "grammar/long_word_bound.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "subwords/suffix_array.h"

namespace tessarin {
namespace {

// Sorting the starts of every repeat deeper than the least short length costs about this many
// starts per symbol on real sequences; a long run of one symbol nests a repeat per length.
constexpr std::int64_t kStartsPerSymbol = 8;

}  // namespace

std::optional<LongWordBound> BoundLongWords(std::span<const std::int32_t> symbols, std::int32_t alphabet_size,
                                            int least_short, int most_short, ProgressMeter& meter, bool& cancelled,
                                            std::optional<SuffixArray>& suffixes, OverlappingWords& overlapping) {
    cancelled = false;
    suffixes.reset();
    overlapping = OverlappingWords{};
    // A run of one symbol overlaps itself in every word of it but the longest, and a long one
    // needs no suffix array to tell.
    int run = 0;
    for (std::size_t i = 0; i < symbols.size(); ++i) {
        run = i > 0 && symbols[i] == symbols[i - 1] ? run + 1 : 1;
        if (run - 1 > most_short) return std::nullopt;
    }
    suffixes = BuildSuffixArray(symbols, alphabet_size, meter);
    if (!suffixes) {
        cancelled = true;
        return std::nullopt;
    }
    // Each stretch of places whose common prefixes reach a depth stands for the words up to that
    // depth that occur at its starts; the longest of them overlaps itself wherever two starts lie
    // closer than the depth. A stack over the common prefixes meets the stretches, deepest first.
    std::int64_t budget = kStartsPerSymbol * static_cast<std::int64_t>(symbols.size());
    int longest_overlapping = 0;                        // the longest word seen with two overlapping occurrences
    std::vector<std::pair<int, std::int64_t>> gains;    // depth and gain of each stretch deeper than least_short
    std::vector<OverlappingWords::Interval> intervals;  // of the stretches whose deepest word overlaps itself
    std::vector<std::int32_t> starts;
    struct Open {
        std::int32_t depth;
        std::int32_t first_place;
    };
    std::vector<Open> open{{0, 0}};
    const auto places = static_cast<std::int32_t>(suffixes->order.size());
    for (std::int32_t place = 1; place <= places; ++place) {
        if (meter.Advance(1)) {
            cancelled = true;
            return std::nullopt;
        }
        const std::int32_t common = place < places ? suffixes->common[place] : 0;
        std::int32_t first_place = place - 1;
        while (common < open.back().depth) {
            const Open closed = open.back();
            open.pop_back();
            first_place = closed.first_place;
            if (closed.depth <= least_short) continue;
            const std::int32_t count = place - closed.first_place;
            budget -= count;
            if (budget < 0) return std::nullopt;
            starts.assign(suffixes->order.begin() + closed.first_place, suffixes->order.begin() + place);
            std::sort(starts.begin(), starts.end());
            std::int32_t least_distance = std::numeric_limits<std::int32_t>::max();
            for (std::size_t k = 1; k < starts.size(); ++k)
                least_distance = std::min(least_distance, starts[k] - starts[k - 1]);
            if (least_distance < closed.depth) {
                longest_overlapping = std::max(longest_overlapping, closed.depth);
                intervals.push_back({closed.first_place, place - 1, least_distance});
            }
            gains.emplace_back(closed.depth, std::int64_t{closed.depth - 1} * (count - 1) - 1);
        }
        if (common > open.back().depth) open.push_back({common, first_place});
    }
    LongWordBound bound;
    bound.short_length = std::max(least_short, longest_overlapping);
    if (bound.short_length > most_short) return std::nullopt;
    std::sort(intervals.begin(), intervals.end(),
              [](const OverlappingWords::Interval& a, const OverlappingWords::Interval& b) {
                  return a.last_place != b.last_place ? a.last_place < b.last_place : a.first_place > b.first_place;
              });
    overlapping.listed_above = least_short;
    overlapping.intervals = std::move(intervals);
    for (const auto& [depth, gain] : gains) {
        if (depth > bound.short_length) bound.most_gain = std::max(bound.most_gain, gain);
    }
    return bound;
}

}  // namespace tessarin
