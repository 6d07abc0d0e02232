#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "grammar/grammar.h"

namespace tessarin {

// The rules one after another, each after the first preceded by a symbol of its own found in none
// of them, so that no common prefix of two suffixes runs from one rule into the next. The trie
// sorts these suffixes, and so does the bound on the longer words that a rebuilt trie is cut by:
// the two share one suffix array.
struct JoinedRules {
    std::vector<std::int32_t> symbols;
    std::vector<std::int32_t> separators;  // their places, in increasing order
    std::int32_t length = 0;               // kept when the symbols are let go
    std::int32_t alphabet_size = 0;

    // The slot at a place that is no separator: rules' slots are numbered on without them.
    std::int32_t SlotAt(std::int32_t place) const { return place - SeparatorsBefore(place); }
    // The symbols from the place to the end of its rule.
    std::int32_t RestOfRule(std::int32_t place) const {
        const std::int32_t before = SeparatorsBefore(place);
        const auto size = static_cast<std::int32_t>(separators.size());
        const std::int32_t end = before < size ? separators[before] : length;
        return end - place;
    }

  private:
    std::int32_t SeparatorsBefore(std::int32_t place) const {
        return static_cast<std::int32_t>(std::lower_bound(separators.begin(), separators.end(), place) -
                                         separators.begin());
    }
};

JoinedRules JoinRules(std::span<const Rule> rules);

}  // namespace tessarin
