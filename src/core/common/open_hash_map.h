#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessarin {

// A map from 64-bit keys to non-negative 32-bit values: open addressing with linear probing, at
// most three quarters full so that probe runs stay short. Erase pulls the later entries of its cluster
// back instead of leaving deleted markers, so a table that sees many inserts and erases (a trie
// kept up to date over thousands of passes) stays as fast as a fresh one. Time and memory grow
// with the number of keys, not with their range.
class OpenHashMap {
  public:
    OpenHashMap();

    // The value of `key`, or -1 when it is not in the map.
    std::int32_t Find(std::uint64_t key) const { return entries_[Slot(key)].value; }
    // Adds a key that is not in the map.
    void Insert(std::uint64_t key, std::int32_t value);
    // Room for `count` keys without growing, so that a table of millions is not built twice over.
    void Reserve(std::size_t count);
    void Erase(std::uint64_t key);

  private:
    struct Entry {
        std::uint64_t key = 0;
        std::int32_t value = -1;  // -1: empty
    };

    // Fibonacci hashing: the top bits of the product spread neighbouring keys over the table.
    std::size_t Home(std::uint64_t key) const {
        return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ULL) >> shift_);
    }
    // The entry holding `key`, or the empty entry that ends its cluster.
    std::size_t Slot(std::uint64_t key) const;
    void Grow();
    // More than three quarters full: probe runs would grow long.
    bool Crowded(std::size_t count) const { return 4 * count > 3 * entries_.size(); }

    std::vector<Entry> entries_;
    std::size_t size_ = 0;
    int shift_;
};

}  // namespace tessarin
