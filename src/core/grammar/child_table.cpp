#include "grammar/child_table.h"

namespace tessarin {
namespace {

constexpr int kInitialBits = 4;

}  // namespace

ChildTable::ChildTable() : entries_(std::size_t{1} << kInitialBits), shift_(64 - kInitialBits) {}

// The entry holding `key`, or the empty entry that ends its cluster.
std::size_t ChildTable::Find(std::uint64_t key) const {
    const std::size_t mask = entries_.size() - 1;
    std::size_t at = Home(key);
    while (entries_[at].child >= 0 && entries_[at].key != key)
        at = (at + 1) & mask;
    return at;
}

std::int32_t ChildTable::Find(std::int32_t parent, std::int32_t symbol) const {
    return entries_[Find(Key(parent, symbol))].child;
}

void ChildTable::Insert(std::int32_t parent, std::int32_t symbol, std::int32_t child) {
    if (2 * (size_ + 1) > entries_.size()) Grow();
    const std::uint64_t key = Key(parent, symbol);
    entries_[Find(key)] = Entry{key, child};
    ++size_;
}

void ChildTable::Erase(std::int32_t parent, std::int32_t symbol) {
    const std::size_t mask = entries_.size() - 1;
    std::size_t hole = Find(Key(parent, symbol));
    if (entries_[hole].child < 0) return;
    --size_;
    // Moves back each later entry of the cluster whose home does not lie between the hole and it.
    for (std::size_t at = (hole + 1) & mask; entries_[at].child >= 0; at = (at + 1) & mask) {
        const std::size_t home = Home(entries_[at].key);
        const bool stays = hole < at ? (hole < home && home <= at) : (hole < home || home <= at);
        if (stays) continue;
        entries_[hole] = entries_[at];
        hole = at;
    }
    entries_[hole] = Entry{};
}

void ChildTable::Grow() {
    std::vector<Entry> old;
    old.swap(entries_);
    entries_.assign(old.size() * 2, Entry{});
    --shift_;
    for (const Entry& entry : old) {
        if (entry.child >= 0) entries_[Find(entry.key)] = entry;
    }
}

}  // namespace tessarin
