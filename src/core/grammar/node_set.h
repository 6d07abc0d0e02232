#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessarin {

// A set of trie nodes asked many times over whether it holds one: an open table of 4-byte slots,
// refilled in place, that stays in the cache. A sorted list searched per word, or a fresh
// OpenHashMap per asking, cost Longest First on a genome some 5 % each.
class NodeSet {
  public:
    void Assign(const std::vector<std::int32_t>& nodes) {
        std::size_t size = kLeastSize;
        while (size < 2 * nodes.size())
            size *= 2;
        mask_ = size - 1;
        slots_.assign(size, kEmpty);
        for (const std::int32_t node : nodes) {
            std::size_t slot = SlotOf(node);
            while (slots_[slot] != kEmpty && slots_[slot] != node)
                slot = (slot + 1) & mask_;
            slots_[slot] = node;
        }
    }

    bool Holds(std::int32_t node) const {
        for (std::size_t slot = SlotOf(node);; slot = (slot + 1) & mask_) {
            if (slots_[slot] == node) return true;
            if (slots_[slot] == kEmpty) return false;
        }
    }

  private:
    static constexpr std::size_t kLeastSize = 16;
    static constexpr std::int32_t kEmpty = -1;

    std::size_t SlotOf(std::int32_t node) const {
        constexpr std::uint64_t kGolden = 0x9E3779B97F4A7C15ULL;
        return static_cast<std::size_t>((static_cast<std::uint64_t>(node) * kGolden) >> 32) & mask_;
    }

    std::size_t mask_ = 0;
    std::vector<std::int32_t> slots_;
};

}  // namespace tessarin
