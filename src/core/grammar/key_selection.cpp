#include "grammar/key_selection.h"

#include <algorithm>
#include <functional>

namespace tessarin {

// The keys between two sampled ones that enclose the k-th, as a rule a small share of them, are
// selected among.
std::uint64_t NthGreatest(std::span<const std::uint64_t> keys, std::size_t k, std::vector<std::uint64_t>& room) {
    constexpr std::size_t kSample = 256;
    constexpr std::size_t kMargin = 16;
    auto select_all = [&] {
        room.assign(keys.begin(), keys.end());
        std::nth_element(room.begin(), room.begin() + static_cast<std::ptrdiff_t>(k), room.end(), std::greater<>());
        return room[k];
    };
    if (keys.size() <= 4 * kSample) return select_all();
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
    for (const std::uint64_t key : keys) {
        above += key > upper;
        room[inside] = key;
        inside += key <= upper && key >= lower;
    }
    room.resize(inside);
    // A sample that missed: the k-th lies outside the window.
    if (k < above || k >= above + room.size()) return select_all();
    const auto place = room.begin() + static_cast<std::ptrdiff_t>(k - above);
    std::nth_element(room.begin(), place, room.end(), std::greater<>());
    return *place;
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
