#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <vector>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace tessarin {

// Tables of hundreds of megabytes read in no order (a genome's trie, its child table, the word
// list's copies) miss the processor's cache of page addresses on almost every read with 4 KB
// pages; 2 MB pages take most of those misses away. Smaller blocks are left alone, as a huge page
// would hold them mostly empty.
inline constexpr std::size_t kHugePageBytes = std::size_t{2} << 20;

// Asks for huge pages for a block; only its pages not touched yet can get them.
inline void AdviseHugePages([[maybe_unused]] void* data, [[maybe_unused]] std::size_t bytes) {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
    if (bytes < kHugePageBytes) return;
    constexpr std::uintptr_t kPage = 4096;
    const auto begin = (reinterpret_cast<std::uintptr_t>(data) + kPage - 1) & ~(kPage - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(data) + bytes) & ~(kPage - 1);
    if (end > begin) madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#endif
}

// A std::vector allocator that maps large blocks afresh with huge pages asked for before their
// first touch: a block malloc hands back from its heap was touched as small pages already.
template <typename T>
struct HugePageAllocator {
    using value_type = T;

    HugePageAllocator() = default;
    template <typename U>
    HugePageAllocator(const HugePageAllocator<U>&) {}

    T* allocate(std::size_t count) {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
        if (count * sizeof(T) >= kHugePageBytes) {
            // A whole number of huge pages, which the kernel places on a huge page's boundary.
            const std::size_t bytes = MappedBytes(count);
            void* data = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
            if (data == MAP_FAILED) throw std::bad_alloc();
            madvise(data, bytes, MADV_HUGEPAGE);
            return static_cast<T*>(data);
        }
#endif
        void* data = std::malloc(count * sizeof(T));
        if (data == nullptr) throw std::bad_alloc();
        return static_cast<T*>(data);
    }
    void deallocate(T* data, std::size_t count) {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
        if (count * sizeof(T) >= kHugePageBytes) {
            munmap(data, MappedBytes(count));
            return;
        }
#endif
        std::free(data);
    }

    template <typename U>
    bool operator==(const HugePageAllocator<U>&) const {
        return true;
    }

  private:
    static std::size_t MappedBytes(std::size_t count) {
        return (count * sizeof(T) + kHugePageBytes - 1) / kHugePageBytes * kHugePageBytes;
    }
};

template <typename T>
using HugePageVector = std::vector<T, HugePageAllocator<T>>;

}  // namespace tessarin
