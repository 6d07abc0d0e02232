#include "common/open_hash_map.h"

#include <algorithm>

namespace tessarin {
namespace {

constexpr std::size_t kInitialSize = 16;

}  // namespace

OpenHashMap::OpenHashMap() : entries_(kInitialSize) {}

std::size_t OpenHashMap::Slot(std::uint64_t key) const {
    std::size_t at = Home(key);
    while (entries_[at].value >= 0 && entries_[at].Key() != key)
        at = After(at);
    return at;
}

void OpenHashMap::Insert(std::uint64_t key, std::int32_t value) {
    if (Crowded(size_ + 1)) Rebuild(2 * entries_.size());
    Entry& entry = entries_[Slot(key)];
    entry.key_low = static_cast<std::uint32_t>(key);
    entry.key_high = static_cast<std::uint32_t>(key >> 32);
    entry.value = value;
    ++size_;
}

void OpenHashMap::Erase(std::uint64_t key) {
    std::size_t hole = Slot(key);
    if (entries_[hole].value < 0) return;
    --size_;
    // Moves back each later entry of the cluster whose home does not lie between the hole and it.
    for (std::size_t at = After(hole); entries_[at].value >= 0; at = After(at)) {
        const std::size_t home = Home(entries_[at].Key());
        const bool stays = hole < at ? (hole < home && home <= at) : (hole < home || home <= at);
        if (stays) continue;
        entries_[hole] = entries_[at];
        hole = at;
    }
    entries_[hole] = Entry{};
}

void OpenHashMap::Clear() {
    std::fill(entries_.begin(), entries_.end(), Entry{});
    size_ = 0;
}

void OpenHashMap::Reserve(std::size_t count) {
    if (Crowded(count)) Rebuild(count + count / 3 + kInitialSize);
}

void OpenHashMap::Rebuild(std::size_t size) {
    HugePageVector<Entry> old(size);
    old.swap(entries_);
    for (const Entry& entry : old) {
        if (entry.value >= 0) entries_[Slot(entry.Key())] = entry;
    }
}

}  // namespace tessarin
