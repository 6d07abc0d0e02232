#include "grammar/repeat_trie.h"

#include <algorithm>

namespace tessarin {

RepeatTrie::RepeatTrie(const Grammar& grammar, int max_depth) : text_(grammar), max_depth_(max_depth) {
    nodes_.emplace_back();
    const std::int32_t slots = text_.SlotCount();
    path_end_.assign(static_cast<std::size_t>(slots), -1);
    next_at_node_.assign(static_cast<std::size_t>(slots), -1);
    prev_at_node_.assign(static_cast<std::size_t>(slots), -1);
    for (std::int32_t slot = 0; slot < slots; ++slot) {
        Attach(slot);
        Extend(slot);
    }
}

// ---- Paths ----

void RepeatTrie::AddSlot(std::int32_t node, std::int32_t slot) {
    const std::int32_t first = nodes_[node].first_slot;
    next_at_node_[slot] = first;
    prev_at_node_[slot] = -1;
    if (first >= 0) prev_at_node_[first] = slot;
    nodes_[node].first_slot = slot;
}

void RepeatTrie::RemoveSlot(std::int32_t node, std::int32_t slot) {
    const std::int32_t next = next_at_node_[slot];
    const std::int32_t prev = prev_at_node_[slot];
    if (prev >= 0) {
        next_at_node_[prev] = next;
    } else {
        nodes_[node].first_slot = next;
    }
    if (next >= 0) prev_at_node_[next] = prev;
}

void RepeatTrie::Attach(std::int32_t slot) {
    path_end_[slot] = kRoot;
    AddSlot(kRoot, slot);
}

std::int32_t RepeatTrie::NewNode(std::int32_t parent, std::int32_t symbol) {
    std::int32_t index;
    if (free_nodes_.empty()) {
        index = static_cast<std::int32_t>(nodes_.size());
        nodes_.emplace_back();
    } else {
        index = free_nodes_.back();
        free_nodes_.pop_back();
        nodes_[index] = Node{};
    }
    Node& node = nodes_[index];
    node.parent = parent;
    node.symbol = symbol;
    node.depth = nodes_[parent].depth + 1;
    node.next_sibling = nodes_[parent].first_child;
    if (node.next_sibling >= 0) nodes_[node.next_sibling].prev_sibling = index;
    nodes_[parent].first_child = index;
    children_.Insert(parent, symbol, index);
    return index;
}

void RepeatTrie::DeleteNode(std::int32_t index) {
    Node& node = nodes_[index];
    if (node.prev_sibling >= 0) {
        nodes_[node.prev_sibling].next_sibling = node.next_sibling;
    } else {
        nodes_[node.parent].first_child = node.next_sibling;
    }
    if (node.next_sibling >= 0) nodes_[node.next_sibling].prev_sibling = node.prev_sibling;
    children_.Erase(node.parent, node.symbol);
    node.parent = -1;
    free_nodes_.push_back(index);
}

void RepeatTrie::JoinGroup(std::int32_t index) {
    Node& node = nodes_[index];
    if (groups_.size() <= static_cast<std::size_t>(node.depth))
        groups_.resize(static_cast<std::size_t>(node.depth) + 1);
    std::vector<std::int32_t>& group = groups_[node.depth];
    node.group_index = static_cast<std::int32_t>(group.size());
    group.push_back(index);
}

void RepeatTrie::LeaveGroup(std::int32_t index) {
    Node& node = nodes_[index];
    std::vector<std::int32_t>& group = groups_[node.depth];
    const std::int32_t moved = group.back();
    group[node.group_index] = moved;
    nodes_[moved].group_index = node.group_index;
    group.pop_back();
    node.group_index = -1;
}

// Walks the slot down from where its path ends for as long as the word it has reached repeats.
// A word that starts to repeat takes the slot that ended there alone down with it.
void RepeatTrie::Extend(std::int32_t slot) {
    pending_.push_back(slot);
    while (!pending_.empty()) {
        const std::int32_t start = pending_.back();
        pending_.pop_back();
        std::int32_t at = path_end_[start];
        int depth = nodes_[at].depth;
        std::int32_t end = depth == 0 ? -1 : text_.Advance(start, depth - 1);
        while (depth < max_depth_ && (at == kRoot || nodes_[at].count >= 2)) {
            const std::int32_t next = depth == 0 ? start : text_.Next(end);
            if (next < 0) break;
            const std::int32_t symbol = text_.Symbol(next);
            std::int32_t child = children_.Find(at, symbol);
            if (child < 0) child = NewNode(at, symbol);
            RemoveSlot(at, start);
            AddSlot(child, start);
            path_end_[start] = child;
            if (nodes_[child].depth == 2) PairChanged(child);
            Node& node = nodes_[child];
            ++node.count;
            node.kept = kUnknown;
            if (node.count == 1 || (node.first_occurrence != kUnknown && start < node.first_occurrence)) {
                node.first_occurrence = start;
            }
            if (node.count == 2) {
                JoinGroup(child);
                pending_.push_back(node.first_slot == start ? next_at_node_[start] : node.first_slot);
            }
            at = child;
            ++depth;
            end = next;
        }
    }
}

// Takes the slot off every word longer than `depth` symbols that starts there. A word left with
// one occurrence becomes the end of that occurrence's path again.
void RepeatTrie::Cut(std::int32_t slot, int depth) {
    std::int32_t at = path_end_[slot];
    if (nodes_[at].depth <= depth) return;
    RemoveSlot(at, slot);
    std::int32_t single = -1;
    while (nodes_[at].depth > depth) {
        if (nodes_[at].depth == 2) PairChanged(at);
        Node& node = nodes_[at];
        const std::int32_t parent = node.parent;
        --node.count;
        node.kept = kUnknown;
        if (node.first_occurrence == slot) node.first_occurrence = kUnknown;
        if (node.count == 1) {
            LeaveGroup(at);
            single = at;
        } else if (node.count == 0) {
            DeleteNode(at);
        }
        at = parent;
    }
    AddSlot(at, slot);
    path_end_[slot] = at;
    if (single >= 0) Collapse(single);
}

// A word with one occurrence left: the longer words below it belong to that occurrence alone
// and go, and its path ends here.
void RepeatTrie::Collapse(std::int32_t index) {
    std::int32_t at = index;
    while (nodes_[at].first_slot < 0)
        at = nodes_[at].first_child;
    const std::int32_t slot = nodes_[at].first_slot;
    RemoveSlot(at, slot);
    while (at != index) {
        const std::int32_t parent = nodes_[at].parent;
        DeleteNode(at);
        at = parent;
    }
    AddSlot(index, slot);
    path_end_[slot] = index;
}

// Replaces the occurrences starting at `starts` (sorted, not overlapping) by `code` and appends
// the rule. The paths that reach into an occurrence are cut back while they still describe the
// old text, then every changed path is walked down again through the new one.
void RepeatTrie::Replace(const std::vector<std::int32_t>& starts, int length, std::int32_t code) {
    std::vector<std::int32_t> symbols;
    for (std::int32_t slot = starts.front(); static_cast<int>(symbols.size()) < length; slot = text_.Next(slot))
        symbols.push_back(text_.Symbol(slot));

    std::vector<std::pair<std::int32_t, int>> cuts;
    std::vector<std::int32_t> removed;
    for (const std::int32_t start : starts) {
        // Paths are monotone: if the one from a slot does not reach the occurrence, no earlier one does.
        std::int32_t before = text_.Prev(start);
        for (int distance = 1; before >= 0 && nodes_[path_end_[before]].depth > distance; ++distance) {
            cuts.emplace_back(before, distance);
            before = text_.Prev(before);
        }
        for (std::int32_t slot = start, k = 0; k < length; ++k, slot = text_.Next(slot))
            removed.push_back(slot);
    }
    for (const auto& [slot, distance] : cuts)
        Cut(slot, distance);
    for (const std::int32_t slot : removed) {
        Cut(slot, 0);
        RemoveSlot(kRoot, slot);
        path_end_[slot] = -1;
    }
    for (const std::int32_t start : starts)
        text_.Replace(start, length, code);
    const std::int32_t first_new = text_.AppendRule(symbols);
    path_end_.resize(static_cast<std::size_t>(text_.SlotCount()), -1);
    next_at_node_.resize(path_end_.size(), -1);
    prev_at_node_.resize(path_end_.size(), -1);

    for (const std::int32_t start : starts) {
        Attach(start);
        Extend(start);
    }
    for (std::int32_t slot = first_new; slot < text_.SlotCount(); ++slot) {
        Attach(slot);
        Extend(slot);
    }
    for (const auto& [slot, distance] : cuts) {
        if (path_end_[slot] >= 0) Extend(slot);
    }
    ++generation_;
}

// ---- Words ----

std::int32_t RepeatTrie::FirstOccurrence(std::int32_t index) {
    if (nodes_[index].first_occurrence != kUnknown) return nodes_[index].first_occurrence;
    std::int32_t first = text_.SlotCount();
    scratch_.assign(1, index);
    while (!scratch_.empty()) {
        const std::int32_t at = scratch_.back();
        scratch_.pop_back();
        for (std::int32_t slot = nodes_[at].first_slot; slot >= 0; slot = next_at_node_[slot])
            first = std::min(first, slot);
        for (std::int32_t child = nodes_[at].first_child; child >= 0; child = nodes_[child].next_sibling)
            scratch_.push_back(child);
    }
    nodes_[index].first_occurrence = first;
    return first;
}

// Two occurrences of a word can overlap only when some proper prefix of it is also a suffix.
bool RepeatTrie::SelfOverlaps(std::int32_t index) {
    Node& node = nodes_[index];
    if (node.self_overlap != kUnknown) return node.self_overlap == 1;
    if (node.depth == 2) {
        node.self_overlap = node.symbol == nodes_[node.parent].symbol ? 1 : 0;
        return node.self_overlap == 1;
    }
    std::vector<std::int32_t>& word = selection_word_;
    word.resize(static_cast<std::size_t>(node.depth));
    for (std::int32_t at = index; at != kRoot; at = nodes_[at].parent)
        word[static_cast<std::size_t>(nodes_[at].depth - 1)] = nodes_[at].symbol;
    // The longest border by the prefix function of Knuth, Morris and Pratt.
    std::vector<std::int32_t>& border = selection_border_;
    border.assign(word.size(), 0);
    for (std::size_t i = 1; i < word.size(); ++i) {
        std::int32_t k = border[i - 1];
        while (k > 0 && word[i] != word[static_cast<std::size_t>(k)])
            k = border[static_cast<std::size_t>(k - 1)];
        border[i] = word[i] == word[static_cast<std::size_t>(k)] ? k + 1 : k;
    }
    nodes_[index].self_overlap = border.back() > 0 ? 1 : 0;
    return nodes_[index].self_overlap == 1;
}

void RepeatTrie::KeptOccurrences(std::int32_t index, std::vector<std::int32_t>& starts,
                                 std::vector<std::int32_t>& ends) {
    std::vector<std::int32_t> all;
    scratch_.assign(1, index);
    while (!scratch_.empty()) {
        const std::int32_t at = scratch_.back();
        scratch_.pop_back();
        for (std::int32_t slot = nodes_[at].first_slot; slot >= 0; slot = next_at_node_[slot])
            all.push_back(slot);
        for (std::int32_t child = nodes_[at].first_child; child >= 0; child = nodes_[child].next_sibling)
            scratch_.push_back(child);
    }
    std::sort(all.begin(), all.end());
    starts.clear();
    ends.clear();
    const int length = nodes_[index].depth;
    // A later slot up to the end of the last kept occurrence lies inside it, in the same rule.
    for (const std::int32_t slot : all) {
        if (!ends.empty() && slot <= ends.back()) continue;
        starts.push_back(slot);
        ends.push_back(text_.Advance(slot, length - 1));
    }
}

std::int32_t RepeatTrie::Kept(std::int32_t index) {
    if (nodes_[index].self_overlap == 0 || !SelfOverlaps(index)) return nodes_[index].count;
    if (nodes_[index].kept == kUnknown) {
        std::vector<std::int32_t> starts;
        std::vector<std::int32_t> ends;
        KeptOccurrences(index, starts, ends);
        nodes_[index].kept = static_cast<std::int32_t>(starts.size());
    }
    return nodes_[index].kept;
}

// The order of the search within a length: falling count; ties by the order of the parents in
// the group before (by symbols for pairs) and, between children of one parent, by first occurrence.
bool RepeatTrie::SearchBefore(std::int32_t a, std::int32_t b) {
    for (;;) {
        const Node& x = nodes_[a];
        const Node& y = nodes_[b];
        if (x.count != y.count) return x.count > y.count;
        if (x.depth <= 2) {
            const std::int32_t x_first = x.depth == 2 ? nodes_[x.parent].symbol : 0;
            const std::int32_t y_first = y.depth == 2 ? nodes_[y.parent].symbol : 0;
            return x_first != y_first ? x_first < y_first : x.symbol < y.symbol;
        }
        if (x.parent == y.parent) return FirstOccurrence(a) < FirstOccurrence(b);
        a = x.parent;
        b = y.parent;
    }
}

// ---- The pairs ranked ----

// A pair's count is about to change: it leaves both rankings until RankChangedPairs.
void RepeatTrie::PairChanged(std::int32_t index) {
    Node& node = nodes_[index];
    if (node.search_entry == kWaitingToBeRanked) return;
    if (node.search_entry >= 0) {
        pairs_by_search_.Erase(node.search_entry);
        pairs_by_list_.Erase(node.list_entry);
    }
    node.search_entry = kWaitingToBeRanked;
    node.list_entry = kNotRanked;
    changed_pairs_.push_back(index);
}

void RepeatTrie::RankChangedPairs() {
    for (const std::int32_t index : changed_pairs_) {
        Node& node = nodes_[index];
        // The node may have gone, or been taken for another word, since it changed.
        if (node.search_entry != kWaitingToBeRanked) continue;
        node.search_entry = kNotRanked;
        if (node.parent < 0 || node.depth != 2 || node.count < 2) continue;
        const std::int32_t first = nodes_[node.parent].symbol;
        const std::int32_t kept = Kept(index);
        nodes_[index].search_entry = pairs_by_search_.Insert({-node.count, first, node.symbol}, index);
        nodes_[index].list_entry = pairs_by_list_.Insert({-kept, -node.count, first, node.symbol}, index);
    }
    changed_pairs_.clear();
}

// ---- The list ----

int RepeatTrie::GroupSize(int length) const {
    return static_cast<std::size_t>(length) < groups_.size() ? static_cast<int>(groups_[length].size()) : 0;
}

void RepeatTrie::Search(int max_length) {
    view_length_ = std::min(max_length, max_depth_);
    extensions_.clear();
}

int RepeatTrie::WordCount() const {
    int count = GroupSize(1);
    const int top = std::min<int>(view_length_, static_cast<int>(groups_.size()) - 1);
    for (int length = 2; length <= top; ++length)
        count += GroupSize(length);
    for (const Extension& group : extensions_)
        count += static_cast<int>(group.words.size());
    return count;
}

int RepeatTrie::LastLength() const {
    if (!extensions_.empty()) return extensions_.back().length;
    for (int length = std::min<int>(view_length_, static_cast<int>(groups_.size()) - 1); length >= 1; --length) {
        if (GroupSize(length) > 0) return length;
    }
    return 0;
}

RepeatTrie::GroupOrder& RepeatTrie::Order(int length) {
    if (orders_.size() <= static_cast<std::size_t>(length)) orders_.resize(static_cast<std::size_t>(length) + 1);
    GroupOrder& order = orders_[length];
    if (order.generation != generation_) {
        order.generation = generation_;
        order.selected.clear();
        order.list.clear();
    }
    return order;
}

void RepeatTrie::SortGroup(int length, GroupOrder& order) {
    std::vector<std::int32_t> search = groups_[length];
    std::sort(search.begin(), search.end(), [this](std::int32_t a, std::int32_t b) { return SearchBefore(a, b); });
    order.list.clear();
    for (std::size_t i = 0; i < search.size(); ++i)
        order.list.emplace_back(search[i], static_cast<std::int32_t>(i + 1));
    std::stable_sort(order.list.begin(), order.list.end(),
                     [this](const auto& a, const auto& b) { return Kept(a.first) > Kept(b.first); });
}

// After pruning, a group is ordered by kept count and, among equal ones, as the search left it.
bool RepeatTrie::ListBefore(std::int32_t a, std::int32_t b) {
    const std::int32_t kept_a = Kept(a);
    const std::int32_t kept_b = Kept(b);
    return kept_a != kept_b ? kept_a > kept_b : SearchBefore(a, b);
}

// One place of a group in list order found without sorting the group: a scan for its first or
// last word, a selection for any other, and a count of the words before it in search order for
// its rank.
RepeatTrie::Placed RepeatTrie::Select(int length, int offset) {
    const std::vector<std::int32_t>& group = groups_[length];
    // Where pruning changed no count the list order is the search order: the place is the rank.
    const bool reordered =
        std::any_of(group.begin(), group.end(), [this](std::int32_t node) { return Kept(node) < nodes_[node].count; });
    auto before = [this, reordered](std::int32_t a, std::int32_t b) {
        return reordered ? ListBefore(a, b) : SearchBefore(a, b);
    };
    selection_ = group;
    const auto place = selection_.begin() + offset;
    if (offset == 0) {
        std::iter_swap(place, std::min_element(selection_.begin(), selection_.end(), before));
    } else if (offset + 1 == static_cast<int>(selection_.size())) {
        std::iter_swap(place, std::max_element(selection_.begin(), selection_.end(), before));
    } else {
        std::nth_element(selection_.begin(), place, selection_.end(), before);
    }
    const std::int32_t node = *place;
    std::int32_t rank = offset + 1;
    if (reordered) {
        rank = 1;
        for (const std::int32_t other : group) {
            if (other != node && SearchBefore(other, node)) ++rank;
        }
    }
    return Placed{offset, node, rank};
}

// The node at a place of a trie group in list order, with its rank. A walk asks for one or two
// places of most groups, so these are selected one by one; a group asked about more often is
// sorted once for the rest of the pass.
std::pair<std::int32_t, std::int32_t> RepeatTrie::NodeAt(int length, int offset) {
    constexpr std::size_t kSelectionsBeforeSorting = 4;
    if (length == 2) {
        RankChangedPairs();
        const std::int32_t node = pairs_by_list_.ValueAt(offset);
        return {node, pairs_by_search_.Rank(nodes_[node].search_entry) + 1};
    }
    GroupOrder& order = Order(length);
    if (order.list.empty()) {
        for (const Placed& placed : order.selected) {
            if (placed.offset == offset) return {placed.node, placed.rank};
        }
        if (order.selected.size() < kSelectionsBeforeSorting) {
            order.selected.push_back(Select(length, offset));
            return {order.selected.back().node, order.selected.back().rank};
        }
        SortGroup(length, order);
    }
    return order.list[static_cast<std::size_t>(offset)];
}

RepeatTrie::Place RepeatTrie::Locate(int position) const {
    int offset = position - 1;
    if (offset < GroupSize(1)) return Place{1, offset, -1};
    offset -= GroupSize(1);
    const int top = std::min<int>(view_length_, static_cast<int>(groups_.size()) - 1);
    for (int length = 2; length <= top; ++length) {
        if (offset < GroupSize(length)) return Place{length, offset, -1};
        offset -= GroupSize(length);
    }
    for (std::size_t e = 0; e < extensions_.size(); ++e) {
        const int size = static_cast<int>(extensions_[e].words.size());
        if (offset < size) return Place{extensions_[e].length, offset, static_cast<int>(e)};
        offset -= size;
    }
    return Place{0, 0, -1};
}

RepeatTrie::Entry RepeatTrie::At(int position) {
    const Place place = Locate(position);
    if (place.length < 2) return Entry{place.length, 0, 1};
    if (place.extension >= 0) {
        const Extension& group = extensions_[static_cast<std::size_t>(place.extension)];
        const std::int32_t index = group.list_order[static_cast<std::size_t>(place.offset)];
        return Entry{group.length, group.words[index].count, index + 1};
    }
    const auto [node, rank] = NodeAt(place.length, place.offset);
    return Entry{place.length, Kept(node), rank};
}

// Keeps each occurrence that starts after the end of the last kept one, word by word, and orders
// the group by the kept counts, stably.
void RepeatTrie::PruneExtension(Extension& group) {
    for (Extension::Word& word : group.words) {
        std::int32_t kept = 0;
        for (std::int32_t j = 0; j < word.count; ++j) {
            const std::size_t at = static_cast<std::size_t>(word.begin + j);
            if (kept > 0 && group.starts[at] <= group.ends[static_cast<std::size_t>(word.begin + kept - 1)]) continue;
            group.starts[static_cast<std::size_t>(word.begin + kept)] = group.starts[at];
            group.ends[static_cast<std::size_t>(word.begin + kept)] = group.ends[at];
            ++kept;
        }
        word.count = kept;
    }
    group.list_order.resize(group.words.size());
    for (std::size_t i = 0; i < group.list_order.size(); ++i)
        group.list_order[i] = static_cast<std::int32_t>(i);
    std::stable_sort(group.list_order.begin(), group.list_order.end(),
                     [&](std::int32_t a, std::int32_t b) { return group.words[a].count > group.words[b].count; });
}

bool RepeatTrie::ExtendLastGroup() {
    const int parent_length = LastLength();
    if (parent_length < 2) return false;
    // The parents in list order, each with its kept occurrences.
    std::vector<std::vector<std::int32_t>> parent_starts;
    std::vector<std::vector<std::int32_t>> parent_ends;
    if (extensions_.empty()) {
        GroupOrder& order = Order(parent_length);
        if (order.list.empty()) SortGroup(parent_length, order);
        for (const auto& [node, rank] : order.list) {
            parent_starts.emplace_back();
            parent_ends.emplace_back();
            KeptOccurrences(node, parent_starts.back(), parent_ends.back());
        }
    } else {
        const Extension& parents = extensions_.back();
        for (const std::int32_t index : parents.list_order) {
            const Extension::Word& word = parents.words[index];
            parent_starts.emplace_back(parents.starts.begin() + word.begin,
                                       parents.starts.begin() + word.begin + word.count);
            parent_ends.emplace_back(parents.ends.begin() + word.begin, parents.ends.begin() + word.begin + word.count);
        }
    }
    // Each parent's occurrences split by the symbol after them; a symbol that follows twice or
    // more makes a word, in the order of its first occurrence.
    Extension group;
    group.length = parent_length + 1;
    for (std::size_t p = 0; p < parent_starts.size(); ++p) {
        const std::vector<std::int32_t>& starts = parent_starts[p];
        const std::vector<std::int32_t>& ends = parent_ends[p];
        ++stamp_;
        child_counts_.clear();
        for (const std::int32_t end : ends) {
            const std::int32_t next = text_.Next(end);
            if (next < 0) continue;
            const std::int32_t symbol = text_.Symbol(next);
            if (static_cast<std::size_t>(symbol) >= seen_at_stamp_.size()) {
                seen_at_stamp_.resize(static_cast<std::size_t>(symbol) + 1, 0);
                child_of_symbol_.resize(seen_at_stamp_.size(), 0);
            }
            if (seen_at_stamp_[symbol] != stamp_) {
                seen_at_stamp_[symbol] = stamp_;
                child_of_symbol_[symbol] = static_cast<std::int32_t>(child_counts_.size());
                child_counts_.push_back(0);
            }
            ++child_counts_[child_of_symbol_[symbol]];
        }
        // Each child's count becomes the index of its word, or -1 when it occurs once.
        for (std::int32_t& child : child_counts_) {
            if (child < 2) {
                child = -1;
                continue;
            }
            group.words.push_back(Extension::Word{static_cast<std::int32_t>(group.starts.size()), 0});
            group.starts.resize(group.starts.size() + static_cast<std::size_t>(child));
            child = static_cast<std::int32_t>(group.words.size() - 1);
        }
        group.ends.resize(group.starts.size());
        for (std::size_t j = 0; j < starts.size(); ++j) {
            const std::int32_t next = text_.Next(ends[j]);
            if (next < 0) continue;
            const std::int32_t word_index = child_counts_[child_of_symbol_[text_.Symbol(next)]];
            if (word_index < 0) continue;
            Extension::Word& word = group.words[word_index];
            const std::size_t at = static_cast<std::size_t>(word.begin + word.count++);
            group.starts[at] = starts[j];
            group.ends[at] = next;
        }
    }
    if (group.words.empty()) return false;
    std::stable_sort(group.words.begin(), group.words.end(),
                     [](const Extension::Word& a, const Extension::Word& b) { return a.count > b.count; });
    PruneExtension(group);
    extensions_.push_back(std::move(group));
    return true;
}

std::int64_t RepeatTrie::AddRule(int position, std::int32_t code) {
    const Place place = Locate(position);
    std::vector<std::int32_t> starts;
    if (place.extension >= 0) {
        const Extension& group = extensions_[static_cast<std::size_t>(place.extension)];
        const Extension::Word& word = group.words[group.list_order[static_cast<std::size_t>(place.offset)]];
        starts.assign(group.starts.begin() + word.begin, group.starts.begin() + word.begin + word.count);
    } else {
        std::vector<std::int32_t> ends;
        KeptOccurrences(NodeAt(place.length, place.offset).first, starts, ends);
    }
    Replace(starts, place.length, code);
    extensions_.clear();
    return place.length - static_cast<std::int64_t>(starts.size()) * (place.length - 1);
}

}  // namespace tessarin
