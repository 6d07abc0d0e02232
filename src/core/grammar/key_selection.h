#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessarin {

// Picks among the 64-bit keys of a group of words: plain numbers compare without the branches and
// memory walks of a full comparison, which is then left to the few words the keys tie.

// Puts the places of the keys equal to the `k`-th greatest (from 0) in `tied`, in order, and
// answers how many keys are greater; `room` is scratch space. One pass over the keys as a rule.
std::size_t TiedWithNth(std::span<const std::uint64_t> keys, std::size_t k, std::vector<std::uint32_t>& tied,
                        std::vector<std::uint64_t>& room);

// Puts the places of the keys equal to `key` in `tied`, in order, and answers how many keys are greater.
std::size_t Tied(std::span<const std::uint64_t> keys, std::uint64_t key, std::vector<std::uint32_t>& tied);

}  // namespace tessarin
