#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessarin {

// The children of trie nodes by (parent, symbol): open addressing with linear probing, where an
// erased entry pulls later ones of its cluster back, so that no deleted markers pile up over the
// thousands of passes of a compression.
class ChildTable {
  public:
    ChildTable();

    // The child, or -1 when there is none.
    std::int32_t Find(std::int32_t parent, std::int32_t symbol) const;
    // Adds a child that is not in the table yet.
    void Insert(std::int32_t parent, std::int32_t symbol, std::int32_t child);
    void Erase(std::int32_t parent, std::int32_t symbol);

  private:
    struct Entry {
        std::uint64_t key = 0;
        std::int32_t child = -1;  // -1: empty
    };

    static std::uint64_t Key(std::int32_t parent, std::int32_t symbol) {
        return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(parent)) << 32) |
               static_cast<std::uint32_t>(symbol);
    }
    // Fibonacci hashing: the top bits of the product spread neighbouring keys over the table.
    std::size_t Home(std::uint64_t key) const {
        return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ULL) >> shift_);
    }
    std::size_t Find(std::uint64_t key) const;
    void Grow();

    std::vector<Entry> entries_;
    std::size_t size_ = 0;
    int shift_ = 0;
};

}  // namespace tessarin
