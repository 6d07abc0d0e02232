#pragma once

#include <cstdint>

#include <unistd.h>

namespace tessarin {

// The bytes of memory the machine has, swap not counted; 0 when the system does not tell.
inline std::uint64_t PhysicalMemory() {
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long page_size = sysconf(_SC_PAGESIZE);
    return pages > 0 && page_size > 0 ? static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(page_size) : 0;
}

}  // namespace tessarin
