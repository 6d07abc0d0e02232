#include "common/open_hash_map.h"

namespace tessarin {
namespace {

constexpr int kInitialBits = 4;

}  // namespace

OpenHashMap::OpenHashMap() : entries_(std::size_t{1} << kInitialBits), shift_(64 - kInitialBits) {}

std::size_t OpenHashMap::Slot(std::uint64_t key) const {
    const std::size_t mask = entries_.size() - 1;
    std::size_t at = Home(key);
    while (entries_[at].value >= 0 && entries_[at].key != key)
        at = (at + 1) & mask;
    return at;
}

void OpenHashMap::Insert(std::uint64_t key, std::int32_t value) {
    if (Crowded(size_ + 1)) Grow();
    entries_[Slot(key)] = Entry{key, value};
    ++size_;
}

void OpenHashMap::Erase(std::uint64_t key) {
    const std::size_t mask = entries_.size() - 1;
    std::size_t hole = Slot(key);
    if (entries_[hole].value < 0) return;
    --size_;
    // Moves back each later entry of the cluster whose home does not lie between the hole and it.
    for (std::size_t at = (hole + 1) & mask; entries_[at].value >= 0; at = (at + 1) & mask) {
        const std::size_t home = Home(entries_[at].key);
        const bool stays = hole < at ? (hole < home && home <= at) : (hole < home || home <= at);
        if (stays) continue;
        entries_[hole] = entries_[at];
        hole = at;
    }
    entries_[hole] = Entry{};
}

void OpenHashMap::Reserve(std::size_t count) {
    while (Crowded(count))
        Grow();
}

void OpenHashMap::Grow() {
    std::vector<Entry> old(entries_.size() * 2);
    old.swap(entries_);
    --shift_;
    for (const Entry& entry : old) {
        if (entry.value >= 0) entries_[Slot(entry.key)] = entry;
    }
}

}  // namespace tessarin
