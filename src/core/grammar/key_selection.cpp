#include "grammar/key_selection.h"

#include <algorithm>
#include <functional>

namespace tessarin {
namespace {

// The greatest or least key and its places in one pass: a new extreme, which restarts the list,
// turns up rarely once the pass is under way.
template <typename Beats>
std::uint64_t TiedWithExtreme(std::span<const std::uint64_t> keys, std::vector<std::uint32_t>& tied, Beats beats) {
    std::uint64_t extreme = keys[0];
    std::size_t count = 0;
    tied.resize(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (beats(keys[i], extreme)) {
            extreme = keys[i];
            count = 0;
        }
        tied[count] = static_cast<std::uint32_t>(i);
        count += keys[i] == extreme;
    }
    tied.resize(count);
    return extreme;
}

std::uint64_t SelectAll(std::span<const std::uint64_t> keys, std::size_t k, std::vector<std::uint64_t>& room) {
    room.assign(keys.begin(), keys.end());
    std::nth_element(room.begin(), room.begin() + static_cast<std::ptrdiff_t>(k), room.end(), std::greater<>());
    return room[k];
}

}  // namespace

// Between the first and the last, the keys between two sampled ones that enclose the k-th (as a
// rule a small share of them) are listed with their places in one pass, and the k-th and its ties
// are found among those.
std::size_t TiedWithNth(std::span<const std::uint64_t> keys, std::size_t k, std::vector<std::uint32_t>& tied,
                        std::vector<std::uint64_t>& room) {
    constexpr std::size_t kSample = 256;
    constexpr std::size_t kMargin = 16;
    if (k == 0) {
        TiedWithExtreme(keys, tied, std::greater<>());
        return 0;
    }
    if (k + 1 == keys.size()) {
        TiedWithExtreme(keys, tied, std::less<>());
        return keys.size() - tied.size();
    }
    if (keys.size() <= 4 * kSample) return Tied(keys, SelectAll(keys, k, room), tied);
    room.clear();
    const std::size_t step = keys.size() / kSample;
    for (std::size_t i = step / 2; i < keys.size(); i += step)
        room.push_back(keys[i]);
    std::sort(room.begin(), room.end(), std::greater<>());
    const std::size_t at = k * room.size() / keys.size();
    const std::uint64_t upper = room[at >= kMargin ? at - kMargin : 0];
    const std::uint64_t lower = room[std::min(at + kMargin, room.size() - 1)];
    // Without branches, as in Tied.
    std::size_t above = 0;
    std::size_t inside = 0;
    room.resize(keys.size());
    tied.resize(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::uint64_t key = keys[i];
        above += key > upper;
        room[inside] = key;
        tied[inside] = static_cast<std::uint32_t>(i);
        inside += key <= upper && key >= lower;
    }
    // A sample that missed: the k-th lies outside the window.
    if (k < above || k >= above + inside) return Tied(keys, SelectAll(keys, k, room), tied);
    tied.resize(inside);
    room.resize(inside);
    const auto place = room.begin() + static_cast<std::ptrdiff_t>(k - above);
    std::nth_element(room.begin(), place, room.end(), std::greater<>());
    const std::uint64_t nth = *place;
    std::size_t count = 0;
    for (const std::uint32_t index : tied) {
        above += keys[index] > nth;
        tied[count] = index;
        count += keys[index] == nth;
    }
    tied.resize(count);
    return above;
}

// Without branches: which side a key falls on follows no pattern.
std::size_t Tied(std::span<const std::uint64_t> keys, std::uint64_t key, std::vector<std::uint32_t>& tied) {
    std::size_t greater = 0;
    std::size_t count = 0;
    tied.resize(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        greater += keys[i] > key;
        tied[count] = static_cast<std::uint32_t>(i);
        count += keys[i] == key;
    }
    tied.resize(count);
    return greater;
}

}  // namespace tessarin
