#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessarin {

// Numbers distinct keys 0, 1, 2, ... in the order in which they are first seen. An open-addressing
// hash table, so time and memory grow with the number of distinct keys and not with their range
// (a grammar's symbols run up to the alphabet size plus the number of its rules).
class FirstSeenNumbering {
  public:
    FirstSeenNumbering();

    // The number of `key`; a key not seen since the last Clear gets the next free number.
    int Number(std::uint64_t key);

    int Size() const { return static_cast<int>(slot_of_number_.size()); }
    std::uint64_t Key(int number) const { return slots_[slot_of_number_[number]].key; }

    // Forgets every key, in time proportional to their number rather than to the table's size.
    void Clear();

  private:
    static constexpr std::int32_t kEmpty = -1;
    static constexpr int kInitialBits = 4;

    struct Slot {
        std::uint64_t key = 0;
        std::int32_t number = kEmpty;
    };

    // Fibonacci hashing: the top bits of the product spread consecutive symbols over the table.
    std::size_t HomeSlot(std::uint64_t key) const { return (key * 0x9E3779B97F4A7C15ULL) >> shift_; }
    std::size_t FindSlot(std::uint64_t key) const;
    void Grow();

    std::vector<Slot> slots_;
    std::vector<std::size_t> slot_of_number_;
    int shift_ = 64 - kInitialBits;
};

}  // namespace tessarin
