#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tessarin {

// Keeps, of a word's occurrences in text order, each one that starts after the end of the last
// one kept, moving the kept ones to the front of `starts` and `ends`; answers how many are kept.
// `end_of(j)` gives the last slot of the j-th occurrence and is asked only for those kept. Slots
// are numbered in text order, rule after rule, so occurrences in different rules never clash.
template <typename EndOf>
std::size_t KeepApart(std::span<std::int32_t> starts, std::span<std::int32_t> ends, EndOf end_of) {
    std::size_t kept = 0;
    for (std::size_t j = 0; j < starts.size(); ++j) {
        if (kept > 0 && starts[j] <= ends[kept - 1]) continue;
        const std::int32_t end = end_of(j);
        starts[kept] = starts[j];
        ends[kept] = end;
        ++kept;
    }
    return kept;
}

}  // namespace tessarin
