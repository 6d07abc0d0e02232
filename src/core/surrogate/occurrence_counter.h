#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tessarin {

// Counts how often each word of a fixed set occurs in a sequence, overlapping occurrences
// included: the number of start positions p = 1..L-m+1 where a word of length m matches (0 for a
// word longer than the sequence). All words of one length are counted in one pass with a hash
// table, so the cost does not grow with the number of words.
class OccurrenceCounter {
  public:
    // `words` are distinct, each its symbols in order.
    explicit OccurrenceCounter(const std::vector<std::vector<std::int32_t>>& words);

    // counts[w] for every word w of the set, in the order given, in `coded` (positions 1..L).
    std::vector<std::int32_t> Count(std::span<const std::int32_t> coded) const;

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::u32string_view text) const { return std::hash<std::u32string_view>{}(text); }
    };
    using WordIndex = std::unordered_map<std::u32string, int, Hash, std::equal_to<>>;
    struct LengthGroup {
        int length = 0;
        WordIndex words;
    };

    std::size_t word_count_ = 0;
    std::vector<LengthGroup> groups_;
};

}  // namespace tessarin
