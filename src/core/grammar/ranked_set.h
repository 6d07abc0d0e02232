#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessarin {

// Values ordered by distinct keys, answering the k-th value and the rank of a key. The entries lie
// in sorted blocks of a few hundred: an insert or erase moves a few kilobytes in one place, and a
// query reads the blocks' sizes in a row, where a balanced tree took a trip to memory per level
// and per update (a genome's pairs change over a million times under Maximum Gain).
template <typename Key>
class RankedSet {
  public:
    int Size() const { return size_; }

    void Insert(const Key& key, std::int32_t value) {
        ++size_;
        counted_ = false;
        if (blocks_.empty()) {
            blocks_.push_back({Entry{key, value}});
            return;
        }
        const std::size_t at = BlockOf(key);
        std::vector<Entry>& block = blocks_[at];
        block.insert(LowerBound(block, key), Entry{key, value});
        if (block.size() > kMostPerBlock) {
            std::vector<Entry> upper(block.begin() + kMostPerBlock / 2, block.end());
            block.resize(kMostPerBlock / 2);
            blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(at) + 1, std::move(upper));
        }
    }

    // The key must be in the set.
    void Erase(const Key& key) {
        const std::size_t at = BlockOf(key);
        std::vector<Entry>& block = blocks_[at];
        block.erase(LowerBound(block, key));
        if (block.empty()) blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(at));
        --size_;
        counted_ = false;
    }

    // The value of the entry with `k` smaller keys (0-based).
    std::int32_t ValueAt(int k) const {
        Count();
        const auto block =
            static_cast<std::size_t>(std::upper_bound(before_.begin(), before_.end(), k) - before_.begin()) - 1;
        return blocks_[block][static_cast<std::size_t>(k - before_[block])].value;
    }

    // The number of entries with smaller keys.
    int Rank(const Key& key) const {
        Count();
        const std::size_t at = BlockOf(key);
        const std::vector<Entry>& block = blocks_[at];
        return before_[at] + static_cast<int>(LowerBound(block, key) - block.begin());
    }

  private:
    struct Entry {
        Key key{};
        std::int32_t value = 0;
    };
    static constexpr std::size_t kMostPerBlock = 512;

    template <typename Block>
    static auto LowerBound(Block& block, const Key& key) {
        return std::partition_point(block.begin(), block.end(), [&](const Entry& entry) { return entry.key < key; });
    }

    // The first block whose last key is not below `key`, or the last block.
    std::size_t BlockOf(const Key& key) const {
        const auto found = std::partition_point(
            blocks_.begin(), blocks_.end(), [&](const std::vector<Entry>& block) { return block.back().key < key; });
        return std::min(static_cast<std::size_t>(found - blocks_.begin()), blocks_.size() - 1);
    }

    // The entries before each block, worked out once after a batch of updates.
    void Count() const {
        if (counted_) return;
        before_.resize(blocks_.size());
        int sum = 0;
        for (std::size_t block = 0; block < blocks_.size(); ++block) {
            before_[block] = sum;
            sum += static_cast<int>(blocks_[block].size());
        }
        counted_ = true;
    }

    std::vector<std::vector<Entry>> blocks_;
    int size_ = 0;
    mutable std::vector<int> before_;
    mutable bool counted_ = false;
};

}  // namespace tessarin
