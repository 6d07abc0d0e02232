#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>
#include <type_traits>
#include <utility>

#include "common/huge_pages.h"

namespace tessarin {

// A growing array of trivially copyable values, for tables of tens of millions of entries. It
// grows with realloc, which moves a large block by remapping its pages; a std::vector copies
// into a new block and holds both meanwhile, half as much memory again at the moment a genome's
// trie is largest.
template <typename T>
class RemappedArray {
    static_assert(std::is_trivially_copyable_v<T>);

  public:
    RemappedArray() = default;
    RemappedArray(const RemappedArray&) = delete;
    RemappedArray& operator=(const RemappedArray&) = delete;
    RemappedArray(RemappedArray&& other) noexcept
        : data_(std::exchange(other.data_, nullptr)),
          size_(std::exchange(other.size_, 0)),
          capacity_(std::exchange(other.capacity_, 0)) {}
    RemappedArray& operator=(RemappedArray&& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
        return *this;
    }
    ~RemappedArray() { std::free(data_); }

    std::size_t size() const { return size_; }
    T& operator[](std::size_t index) { return data_[index]; }
    const T& operator[](std::size_t index) const { return data_[index]; }

    void push_back(const T& value) {
        if (size_ == capacity_) Grow();
        new (data_ + size_) T(value);
        ++size_;
    }
    // Keeps the room, and the pages behind it.
    void clear() { size_ = 0; }

  private:
    void Grow() {
        constexpr std::size_t kFirstCapacity = 64;
        const std::size_t capacity = capacity_ == 0 ? kFirstCapacity : 2 * capacity_;
        void* grown = std::realloc(data_, capacity * sizeof(T));
        if (grown == nullptr) throw std::bad_alloc();
        data_ = static_cast<T*>(grown);
        capacity_ = capacity;
        AdviseHugePages(data_, capacity * sizeof(T));
    }

    T* data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace tessarin
