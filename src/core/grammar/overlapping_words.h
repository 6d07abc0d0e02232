#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace tessarin {

// Which words of a text have two occurrences that overlap, read off its suffix array for the words
// longer than `listed_above` symbols. The words that start with the same symbols at the same places
// order[first_place..last_place] overlap exactly where they are longer than the least distance
// between two of those places; intervals where none does are not listed. A trie built over the same
// suffixes learns from this which of its words keep every occurrence, without looking for borders
// and periods.
struct OverlappingWords {
    struct Interval {
        std::int32_t first_place = 0;
        std::int32_t last_place = 0;
        std::int32_t least_distance = 0;
    };

    int listed_above = std::numeric_limits<int>::max();
    std::vector<Interval> intervals;  // by last place, then by first place falling

    // Walks the intervals along a sweep over the suffixes that meets each interval's words at its
    // last place, the longer ones first, as the trie's build closes its nodes.
    class Cursor {
      public:
        explicit Cursor(const OverlappingWords& words) : words_(words) {}

        // Whether the word of `length` symbols at the suffixes order[first_place..last_place] is
        // known to have no two occurrences that overlap.
        bool Apart(std::int32_t first_place, std::int32_t last_place, int length) {
            if (length <= words_.listed_above) return false;
            const std::vector<Interval>& intervals = words_.intervals;
            while (at_ < intervals.size() &&
                   (intervals[at_].last_place < last_place ||
                    (intervals[at_].last_place == last_place && intervals[at_].first_place > first_place)))
                ++at_;
            const bool listed = at_ < intervals.size() && intervals[at_].last_place == last_place &&
                                intervals[at_].first_place == first_place;
            return !listed || length <= intervals[at_].least_distance;
        }

      private:
        const OverlappingWords& words_;
        std::size_t at_ = 0;
    };
};

}  // namespace tessarin
