#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/huge_pages.h"

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
    // Asks the memory for where the key's search starts, some look-ups before it is made.
    void Prefetch(std::uint64_t key) const { __builtin_prefetch(&entries_[Home(key)]); }
    // Adds a key that is not in the map.
    void Insert(std::uint64_t key, std::int32_t value);
    // Room for `count` keys without growing, so that a table of millions is not built twice over.
    void Reserve(std::size_t count);
    void Erase(std::uint64_t key);
    // Empties the map and keeps its table.
    void Clear();

  private:
    // The key in two halves leaves the entry without padding: 12 bytes instead of 16, on a table
    // that holds an entry for almost every slot of a genome.
    struct Entry {
        std::uint32_t key_low = 0;
        std::uint32_t key_high = 0;
        std::int32_t value = -1;  // -1: empty

        std::uint64_t Key() const { return (std::uint64_t{key_high} << 32) | key_low; }
    };

    // Fibonacci hashing spreads neighbouring keys; the top half of the product is then scaled onto
    // the table (Lemire's multiply-shift range reduction), so the table can have any size and is
    // sized to what it holds rather than to the next power of two.
    std::size_t Home(std::uint64_t key) const {
        const std::uint64_t hash = (key * 0x9E3779B97F4A7C15ULL) >> 32;
        return static_cast<std::size_t>((hash * entries_.size()) >> 32);
    }
    std::size_t After(std::size_t at) const { return at + 1 == entries_.size() ? 0 : at + 1; }
    // The entry holding `key`, or the empty entry that ends its cluster.
    std::size_t Slot(std::uint64_t key) const;
    void Rebuild(std::size_t size);
    // More than three quarters full: probe runs would grow long.
    bool Crowded(std::size_t count) const { return 4 * count > 3 * entries_.size(); }

    HugePageVector<Entry> entries_;
    std::size_t size_ = 0;
};

}  // namespace tessarin
