#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessarin {

// Picks among the 64-bit keys of a group of words: plain numbers compare without the branches and
// memory walks of a full comparison, which is then left to the few words the keys tie.

// The `k`-th greatest of `keys` (from 0), found without reordering them; `room` is scratch space.
std::uint64_t NthGreatest(std::span<const std::uint64_t> keys, std::size_t k, std::vector<std::uint64_t>& room);

// Puts the places of the keys equal to `key` in `tied`, in order, and answers how many keys are greater.
std::size_t Tied(std::span<const std::uint64_t> keys, std::uint64_t key, std::vector<std::uint32_t>& tied);

}  // namespace tessarin
