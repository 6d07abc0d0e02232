#include "grammar/long_words.h"

#include <algorithm>
#include <utility>

#include "subwords/suffix_array.h"

namespace tessarin {
namespace {

// The runs of slots whose paths reach the trie's depth, each with the symbols after it that an
// occurrence starting in it may take, merged where they meet, one after another with a symbol
// of its own after each.
struct Stretches {
    std::vector<std::int32_t> symbols;
    std::vector<std::int32_t> slot_at;  // -1 at the symbols between stretches
    std::int32_t alphabet_size = 0;
};

Stretches ReadStretches(const RepeatTrie& trie) {
    const int depth = trie.max_depth();
    std::vector<std::int32_t> deep;
    trie.SlotsEndingAt(depth, deep);
    std::sort(deep.begin(), deep.end());
    Stretches read;
    const LinkedRules& text = trie.text();
    std::size_t next_deep = 0;
    while (next_deep < deep.size()) {
        int after_deep = 0;  // symbols read since the last deep slot
        for (std::int32_t slot = deep[next_deep]; slot >= 0; slot = text.Next(slot)) {
            if (next_deep < deep.size() && deep[next_deep] == slot) {
                ++next_deep;
                after_deep = 0;
            } else if (++after_deep == depth) {
                break;
            }
            read.symbols.push_back(text.Symbol(slot));
            read.slot_at.push_back(slot);
        }
        read.symbols.push_back(-1);
        read.slot_at.push_back(-1);
    }
    // A text of one end alone stands for none.
    if (read.symbols.empty()) {
        read.symbols.push_back(-1);
        read.slot_at.push_back(-1);
    }
    // The suffix array wants a small alphabet: the symbols are numbered afresh in order, and each
    // stretch's end gets a number after them, so that no common prefix runs into the next stretch.
    std::vector<std::int32_t> used;
    for (const std::int32_t symbol : read.symbols) {
        if (symbol >= 0) used.push_back(symbol);
    }
    std::sort(used.begin(), used.end());
    used.erase(std::unique(used.begin(), used.end()), used.end());
    auto next_end = static_cast<std::int32_t>(used.size());
    for (std::int32_t& symbol : read.symbols) {
        symbol = symbol < 0
                     ? next_end++
                     : static_cast<std::int32_t>(std::lower_bound(used.begin(), used.end(), symbol) - used.begin());
    }
    read.alphabet_size = next_end;
    return read;
}

}  // namespace

std::optional<LongWords> LongWords::Read(const RepeatTrie& trie, TrieBefore before, ProgressMeter& meter) {
    Stretches read = ReadStretches(trie);
    std::optional<SuffixArray> suffixes = BuildSuffixArray(read.symbols, read.alphabet_size, meter);
    if (!suffixes) return std::nullopt;
    std::optional<RepeatTree> tree = RepeatTree::Build(*suffixes, meter);
    if (!tree) return std::nullopt;
    return LongWords(trie, std::move(before), std::move(*tree), std::move(read.slot_at), std::move(suffixes->order));
}

LongWords::LongWords(const RepeatTrie& trie, TrieBefore before, RepeatTree tree, std::vector<std::int32_t> slot_at,
                     std::vector<std::int32_t> order)
    : trie_(&trie),
      before_(std::move(before)),
      tree_(std::move(tree)),
      slot_at_(std::move(slot_at)),
      order_(std::move(order)) {
    std::vector<std::int32_t> to_visit{tree_.Root()};
    while (!to_visit.empty()) {
        const std::int32_t node = to_visit.back();
        to_visit.pop_back();
        if (tree_.Depth(node) > trie.max_depth()) deep_.push_back(node);
        for (const std::int32_t child : tree_.Children(node)) {
            if (parent_.size() <= static_cast<std::size_t>(child))
                parent_.resize(static_cast<std::size_t>(child) + 1, -1);
            parent_[static_cast<std::size_t>(child)] = node;
            to_visit.push_back(child);
        }
    }
}

std::optional<LongWords::Word> LongWords::Longest() const {
    int longest = 0;
    std::int32_t count = 0;
    for (const std::int32_t node : deep_) {
        if (tree_.Depth(node) > longest || (tree_.Depth(node) == longest && tree_.Count(node) > count)) {
            longest = tree_.Depth(node);
            count = tree_.Count(node);
        }
    }
    if (longest == 0) return std::nullopt;
    return FirstInSearch(longest, count);
}

// A node of depth d and count c gains most with its longest words, (d - 1)(c - 1) - 1; no longer
// word of that length then occurs more often, or it would gain more.
std::optional<LongWords::Word> LongWords::MostGain(std::int64_t& gain) const {
    int length = 0;
    std::int32_t count = 0;
    for (const std::int32_t node : deep_) {
        const std::int64_t node_gain = std::int64_t{tree_.Depth(node) - 1} * (tree_.Count(node) - 1) - 1;
        if (length == 0 || node_gain > gain || (node_gain == gain && tree_.Depth(node) > length)) {
            gain = node_gain;
            length = tree_.Depth(node);
            count = tree_.Count(node);
        }
    }
    if (length == 0) return std::nullopt;
    return FirstInSearch(length, count);
}

LongWords::Word LongWords::FirstInSearch(int length, std::int32_t count) const {
    std::int32_t first = -1;
    for (const std::int32_t node : deep_) {
        if (tree_.Depth(node) != length || tree_.Count(node) != count) continue;
        if (first < 0 || Before(node, first)) first = node;
    }
    Word word{length, {}};
    for (std::int32_t place = tree_.FirstPlace(first); place <= tree_.LastPlace(first); ++place)
        word.starts.push_back(slot_at_[static_cast<std::size_t>(order_[static_cast<std::size_t>(place)])]);
    std::sort(word.starts.begin(), word.starts.end());
    return word;
}

// As the trie's search order: by count, then by the prefix one symbol shorter, and between two
// words with one such prefix by first occurrence. A node's words share its count, so the walk up
// goes from node to parent; it leaves the tree for the trie at the trie's depth.
bool LongWords::Before(std::int32_t a, std::int32_t b) const {
    for (;;) {
        if (tree_.Count(a) != tree_.Count(b)) return tree_.Count(a) > tree_.Count(b);
        const std::int32_t parent_a = parent_[static_cast<std::size_t>(a)];
        const std::int32_t parent_b = parent_[static_cast<std::size_t>(b)];
        const int shorter = std::max(tree_.Depth(parent_a), tree_.Depth(parent_b));
        if (shorter <= trie_->max_depth()) {
            const std::int32_t prefix_a = trie_->PathEnd(FirstSlot(a));
            const std::int32_t prefix_b = trie_->PathEnd(FirstSlot(b));
            if (prefix_a == prefix_b) return FirstSlot(a) < FirstSlot(b);
            return before_(prefix_a, prefix_b);
        }
        const std::int32_t up_a = tree_.Depth(parent_a) == shorter ? parent_a : a;
        const std::int32_t up_b = tree_.Depth(parent_b) == shorter ? parent_b : b;
        if (up_a == up_b) return FirstSlot(a) < FirstSlot(b);
        a = up_a;
        b = up_b;
    }
}

}  // namespace tessarin
