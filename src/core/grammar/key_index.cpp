#include "grammar/key_index.h"

#include <algorithm>
#include <functional>

#include "grammar/key_selection.h"

namespace tessarin {
namespace {

constexpr std::size_t kLeastFiled = 4096;  // a smaller group is read whole: one pass of a few microseconds
constexpr std::size_t kPlacesPerRange = 256;

}  // namespace

void KeyIndex::Clear() {
    keys_.clear();
    floors_.clear();
    ranges_.clear();
    slot_in_range_.clear();
    refile_above_ = 0;
}

void KeyIndex::Resize(std::size_t size) {
    if (Filed()) {
        for (std::size_t place = size; place < keys_.size(); ++place)
            Unfile(place);
    }
    const std::size_t old_size = keys_.size();
    keys_.resize(size, 0);
    slot_in_range_.resize(size);
    // Filing one of them may call for a new filing of all.
    for (std::size_t place = old_size; place < size && Filed(); ++place)
        File(place);
}

void KeyIndex::Set(std::size_t place, std::uint64_t key) {
    if (!Filed() || RangeOf(key) == RangeOf(keys_[place])) {
        keys_[place] = key;
        return;
    }
    Unfile(place);
    keys_[place] = key;
    File(place);
}

// The first range whose floor is at most `key`; the last floor is 0, so there is one. Filing a
// group of a million words asks this a million times in no order of keys: a search whose steps
// choose by a conditional move runs some twice as fast as one that branches.
std::size_t KeyIndex::RangeOf(std::uint64_t key) const {
    const std::uint64_t* floors = floors_.data();
    std::size_t first = 0;
    for (std::size_t length = floors_.size(); length > 1;) {
        const std::size_t half = length / 2;
        first = floors[first + half - 1] > key ? first + half : first;
        length -= half;
    }
    return first + (floors[first] > key ? 1 : 0);
}

void KeyIndex::File(std::size_t place) {
    std::vector<std::uint32_t>& range = ranges_[RangeOf(keys_[place])];
    slot_in_range_[place] = static_cast<std::uint32_t>(range.size());
    range.push_back(static_cast<std::uint32_t>(place));
    // A range that takes most of the group leaves the picks reading most of it: file afresh.
    if (range.size() > refile_above_) floors_.clear();
}

void KeyIndex::Unfile(std::size_t place) {
    std::vector<std::uint32_t>& range = ranges_[RangeOf(keys_[place])];
    const std::uint32_t moved = range.back();
    range[slot_in_range_[place]] = moved;
    slot_in_range_[moved] = slot_in_range_[place];
    range.pop_back();
}

// Floors from a sorted sample of the keys; a key held by many places gets a range of its own.
void KeyIndex::Build(std::vector<std::uint64_t>& room) {
    const std::size_t range_count = keys_.size() / kPlacesPerRange;
    const std::size_t step = keys_.size() / (4 * range_count);
    room.clear();
    for (std::size_t place = step / 2; place < keys_.size(); place += step)
        room.push_back(keys_[place]);
    std::sort(room.begin(), room.end(), std::greater<>());
    floors_.clear();
    for (std::size_t at = 4; at < room.size(); at += 4) {
        if (floors_.empty() || room[at] < floors_.back()) floors_.push_back(room[at]);
    }
    if (floors_.empty() || floors_.back() != 0) floors_.push_back(0);
    ranges_.assign(floors_.size(), {});
    refile_above_ = keys_.size();  // no new filing while the first is made
    for (std::size_t place = 0; place < keys_.size(); ++place)
        File(place);
    std::size_t largest = 0;
    for (const std::vector<std::uint32_t>& range : ranges_)
        largest = std::max(largest, range.size());
    // Some slack, so that a group whose keys pile up on one value is not filed again pass after pass.
    refile_above_ = std::max(4 * kPlacesPerRange, 2 * largest);
}

std::size_t KeyIndex::TiedInRange(std::size_t range, std::uint64_t key, std::vector<std::uint32_t>& tied) const {
    std::size_t greater = 0;
    tied.clear();
    for (const std::uint32_t place : ranges_[range]) {
        greater += keys_[place] > key;
        if (keys_[place] == key) tied.push_back(place);
    }
    return greater;
}

std::size_t KeyIndex::TiedWithNth(std::size_t k, std::vector<std::uint32_t>& tied, std::vector<std::uint64_t>& room) {
    if (keys_.size() < kLeastFiled) return tessarin::TiedWithNth(keys_, k, tied, room);
    if (!Filed()) Build(room);
    std::size_t before = 0;
    std::size_t range = 0;
    while (k >= before + ranges_[range].size())
        before += ranges_[range++].size();
    room.clear();
    for (const std::uint32_t place : ranges_[range])
        room.push_back(keys_[place]);
    const auto nth = room.begin() + static_cast<std::ptrdiff_t>(k - before);
    std::nth_element(room.begin(), nth, room.end(), std::greater<>());
    return before + TiedInRange(range, *nth, tied);
}

std::size_t KeyIndex::Tied(std::uint64_t key, std::vector<std::uint32_t>& tied) {
    if (keys_.size() < kLeastFiled) return tessarin::Tied(keys_, key, tied);
    if (!Filed()) {
        std::vector<std::uint64_t> room;
        Build(room);
    }
    const std::size_t range = RangeOf(key);
    std::size_t before = 0;
    for (std::size_t earlier = 0; earlier < range; ++earlier)
        before += ranges_[earlier].size();
    return before + TiedInRange(range, key, tied);
}

}  // namespace tessarin
