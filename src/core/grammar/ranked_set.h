#pragma once

#include <cstdint>
#include <vector>

namespace tessarin {

// Values ordered by distinct keys, answering the k-th value and the rank of an entry in
// logarithmic time: a treap whose nodes count their subtrees. Insert answers a handle that
// names the entry until it is erased; an entry keeps the key it was inserted with.
template <typename Key>
class RankedSet {
  public:
    int Size() const { return SizeOf(root_); }

    std::int32_t Insert(const Key& key, std::int32_t value) {
        std::int32_t handle;
        if (free_.empty()) {
            handle = static_cast<std::int32_t>(items_.size());
            items_.emplace_back();
        } else {
            handle = free_.back();
            free_.pop_back();
        }
        items_[handle] = Item{key, value, -1, -1, NextPriority(), 1};
        std::int32_t less = -1;
        std::int32_t greater = -1;
        Split(root_, key, less, greater);
        root_ = Merge(Merge(less, handle), greater);
        return handle;
    }

    void Erase(std::int32_t handle) {
        root_ = Erase(root_, items_[handle].key);
        free_.push_back(handle);
    }

    // The value of the entry with `k` smaller keys (0-based).
    std::int32_t ValueAt(int k) const {
        std::int32_t at = root_;
        for (;;) {
            const int left = SizeOf(items_[at].left);
            if (k == left) return items_[at].value;
            if (k < left) {
                at = items_[at].left;
            } else {
                k -= left + 1;
                at = items_[at].right;
            }
        }
    }

    // The number of entries with smaller keys.
    int Rank(std::int32_t handle) const {
        const Key& key = items_[handle].key;
        int rank = 0;
        for (std::int32_t at = root_; at >= 0;) {
            if (items_[at].key < key) {
                rank += SizeOf(items_[at].left) + 1;
                at = items_[at].right;
            } else {
                at = items_[at].left;
            }
        }
        return rank;
    }

  private:
    struct Item {
        Key key{};
        std::int32_t value = 0;
        std::int32_t left = -1;
        std::int32_t right = -1;
        std::uint32_t priority = 0;
        std::int32_t size = 0;
    };

    int SizeOf(std::int32_t at) const { return at < 0 ? 0 : items_[at].size; }
    void Update(std::int32_t at) { items_[at].size = 1 + SizeOf(items_[at].left) + SizeOf(items_[at].right); }

    // A fixed xorshift sequence: the shape of the tree, and so the run time, is reproducible.
    std::uint32_t NextPriority() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return state_;
    }

    // Splits the tree at `at` into the items with keys below `key` and the others.
    void Split(std::int32_t at, const Key& key, std::int32_t& less, std::int32_t& greater) {
        if (at < 0) {
            less = greater = -1;
        } else if (items_[at].key < key) {
            Split(items_[at].right, key, items_[at].right, greater);
            less = at;
            Update(at);
        } else {
            Split(items_[at].left, key, less, items_[at].left);
            greater = at;
            Update(at);
        }
    }

    std::int32_t Merge(std::int32_t less, std::int32_t greater) {
        if (less < 0) return greater;
        if (greater < 0) return less;
        if (items_[less].priority > items_[greater].priority) {
            items_[less].right = Merge(items_[less].right, greater);
            Update(less);
            return less;
        }
        items_[greater].left = Merge(less, items_[greater].left);
        Update(greater);
        return greater;
    }

    std::int32_t Erase(std::int32_t at, const Key& key) {
        if (items_[at].key < key) {
            items_[at].right = Erase(items_[at].right, key);
        } else if (key < items_[at].key) {
            items_[at].left = Erase(items_[at].left, key);
        } else {
            return Merge(items_[at].left, items_[at].right);
        }
        Update(at);
        return at;
    }

    std::vector<Item> items_;
    std::vector<std::int32_t> free_;
    std::int32_t root_ = -1;
    std::uint32_t state_ = 2463534242U;
};

}  // namespace tessarin
