#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/huge_pages.h"

namespace tessarin {

// The 64-bit keys of a group's copy, one per place, with what a pick asks of them: the places
// tied at the k-th greatest key, or at a given key, and how many keys are greater. A large group
// also files its places by ranges of keys, kept up to date as keys change, so that a pick reads
// the range that holds its key instead of every key: Longest First picks two places a pass out of
// a group of thousands, where a pass changes a few dozen keys.
class KeyIndex {
  public:
    std::uint64_t operator[](std::size_t place) const { return keys_[place]; }
    // New places hold the key 0.
    void Resize(std::size_t size);
    // No places, the room for them kept.
    void Clear();
    void Set(std::size_t place, std::uint64_t key);

    // As the free functions of key_selection.h, but a large group's tied places come in no
    // order: the picks order them by comparison anyway, and sorting thousands of ties a pick cost
    // a tenth of Longest First on a genome.
    std::size_t TiedWithNth(std::size_t k, std::vector<std::uint32_t>& tied, std::vector<std::uint64_t>& room);
    std::size_t Tied(std::uint64_t key, std::vector<std::uint32_t>& tied);

  private:
    bool Filed() const { return !floors_.empty(); }
    // Files every place afresh, in ranges of about equal size as the keys now fall.
    void Build(std::vector<std::uint64_t>& room);
    std::size_t RangeOf(std::uint64_t key) const;
    void File(std::size_t place);
    void Unfile(std::size_t place);
    // The places of `range` whose key is `key`, in no order, in `tied`; answers how many are greater.
    std::size_t TiedInRange(std::size_t range, std::uint64_t key, std::vector<std::uint32_t>& tied) const;

    HugePageVector<std::uint64_t> keys_;
    // The least key of each range, falling from range to range, the last 0; empty while not filed.
    std::vector<std::uint64_t> floors_;
    std::vector<std::vector<std::uint32_t>> ranges_;
    HugePageVector<std::uint32_t> slot_in_range_;  // per place
    std::size_t refile_above_ = 0;                 // a range grown past this many places calls for a new filing
};

}  // namespace tessarin
