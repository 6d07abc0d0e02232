#include "grammar/repeat_trie.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "grammar/overlaps.h"

namespace tessarin {
namespace {

// Lists the node under its length, the lists growing as needed.
void ListByLength(RepeatTrie::NodesByLength& lists, int length, std::int32_t node) {
    if (lists.size() <= static_cast<std::size_t>(length)) lists.resize(static_cast<std::size_t>(length) + 1);
    lists[static_cast<std::size_t>(length)].push_back(node);
}

}  // namespace

RepeatTrie::RepeatTrie(std::span<const Rule> rules, int max_depth, Poll poll, int longest_overlapping,
                       std::optional<SuffixArray> suffixes, const OverlappingWords& overlapping, Tables tables)
    : text_(rules, std::move(tables.text)),
      max_depth_(max_depth),
      longest_overlapping_(longest_overlapping),
      poll_(std::move(poll)),
      nodes_(std::move(tables.nodes)),
      stretch_tops_(std::move(tables.stretch_tops)),
      children_(std::move(tables.children)),
      slots_(std::move(tables.slots)) {
    nodes_.clear();
    stretch_tops_.clear();
    children_.Clear();
    slots_.clear();
    const std::int32_t slots = text_.SlotCount();
    // Almost every slot ends its path in a leaf of the child table, and the words that repeat add
    // some more entries: room for a quarter more than the slots spares rebuilding a table of millions.
    children_.Reserve(static_cast<std::size_t>(slots) + static_cast<std::size_t>(slots) / 4 + 1024);
    nodes_.push_back(Node{});
    stretch_tops_.push_back(-1);
    FitSlotStates();
    scanned_ = 0;
    AttachBySuffixes(rules, std::move(suffixes), overlapping);
    scanned_ = -1;
}

RepeatTrie::Tables RepeatTrie::LetGoOfTables() {
    return Tables{std::move(text_), std::move(nodes_), std::move(stretch_tops_), std::move(children_),
                  std::move(slots_)};
}

// New slots start unattached: no path, no leaf, listed at no node.
void RepeatTrie::FitSlotStates() {
    while (slots_.size() < static_cast<std::size_t>(text_.SlotCount()))
        slots_.push_back(SlotState{});
}

int RepeatTrie::GroupSize(int length) const {
    return static_cast<std::size_t>(length) < groups_.size() ? static_cast<int>(groups_[length].size()) : 0;
}

void RepeatTrie::SlotsEndingAt(int depth, std::vector<std::int32_t>& slots) const {
    if (static_cast<std::size_t>(depth) >= groups_.size()) return;
    for (const std::int32_t node : groups_[depth]) {
        for (std::int32_t slot = nodes_[node].first_slot; slot >= 0; slot = slots_[slot].next_at_node)
            slots.push_back(slot);
    }
}

RepeatTrie::CountRange RepeatTrie::GroupCountRange(int length) {
    if (GroupSize(length) == 0) return {};
    GroupCounts& counts = group_counts_[length];
    if (!counts.known) {
        counts = GroupCounts{};
        for (const std::int32_t node : Group(length))
            counts.Add(nodes_[node].count);
    }
    return {counts.most, counts.at_most, counts.least};
}

void RepeatTrie::GroupCounts::Add(std::int32_t count) {
    if (!known) return;
    if (at_most == 0 || count > most) {
        most = count;
        at_most = 0;
    }
    at_most += count == most ? 1 : 0;
    if (at_least == 0 || count < least) {
        least = count;
        at_least = 0;
    }
    at_least += count == least ? 1 : 0;
}

void RepeatTrie::GroupCounts::Remove(std::int32_t count) {
    if (!known) return;
    if (count == most && --at_most == 0) known = false;
    if (count == least && --at_least == 0) known = false;
}

const RepeatTrie::NodesByLength& RepeatTrie::TakeChangedNodes() {
    for (const std::vector<std::int32_t>& nodes : taken_changed_) {
        for (const std::int32_t node : nodes)
            nodes_[node].taken_as_changed = false;
    }
    for (const std::vector<std::int32_t>& nodes : changed_nodes_) {
        for (const std::int32_t node : nodes) {
            nodes_[node].changed = false;
            nodes_[node].taken_as_changed = true;
        }
    }
    taken_changed_ = std::exchange(changed_nodes_, {});
    return taken_changed_;
}

// ---- Paths ----

void RepeatTrie::EndPath(std::int32_t slot, std::int32_t node, std::int32_t end) {
    slots_[slot].path_end = node;
    slots_[slot].end_slot = end;
    const std::int32_t first = nodes_[node].first_slot;
    slots_[slot].next_at_node = first;
    slots_[slot].prev_at_node = -1;
    if (first >= 0) slots_[first].prev_at_node = slot;
    nodes_[node].first_slot = slot;
}

void RepeatTrie::RemoveSlot(std::int32_t node, std::int32_t slot) {
    const std::int32_t next = slots_[slot].next_at_node;
    const std::int32_t prev = slots_[slot].prev_at_node;
    if (prev >= 0) {
        slots_[prev].next_at_node = next;
    } else {
        nodes_[node].first_slot = next;
    }
    if (next >= 0) slots_[next].prev_at_node = prev;
}

void RepeatTrie::AttachSlots(std::int32_t first, std::int32_t last) {
    for (std::int32_t slot = first; slot < last && !stopped_;) {
        const std::int32_t symbol = text_.Symbol(slot);
        run_.clear();
        for (std::int32_t at = slot; at >= 0 && text_.Symbol(at) == symbol; at = text_.Next(at))
            run_.push_back(at);
        if (run_.size() == 1) {
            Attach(slot);
            Extend(slot);
        } else {
            AttachRun();
        }
        // A fresh rule's slots are consecutive numbers.
        slot = run_.back() + 1;
    }
}

// A run of r symbols a adds r - k + 1 occurrences to a^k at once; then each slot's path starts
// where the run ends for it and is walked on from there like any other.
void RepeatTrie::AttachRun() {
    const std::int32_t start = run_.front();
    const std::int32_t symbol = text_.Symbol(start);
    const auto length = static_cast<std::int32_t>(run_.size());
    run_path_.assign(1, kRoot);
    // The runs already there are read off the chain's index; the child table is asked once, for
    // a leaf where the chain ends, and longer runs are new.
    const std::vector<std::int32_t>& chain = chains_[symbol];
    bool past_chain = false;
    bool leaf = false;
    for (std::int32_t k = 1; k <= std::min<std::int32_t>(length, max_depth_); ++k) {
        Step();
        const std::int32_t at = run_path_.back();
        const std::int32_t added = length - k + 1;
        std::int32_t found = -1;
        if (static_cast<std::size_t>(k) < chain.size() && chain[k] >= 0) {
            found = chain[k];
        } else if (!past_chain) {
            found = FindChild(at, symbol);
            past_chain = true;
        }
        if (found < 0 && added == 1) {
            // The whole run occurs here only: the first slot's path ends in a leaf.
            InsertLeaf(at, symbol, start);
            leaf = true;
            break;
        }
        std::int32_t child = found;
        if (found < 0) {
            child = NewNode(at, symbol);
            nodes_[child].border = BorderOfNew(child, start);
        } else if ((found & kLeaf) != 0) {
            // A run of exactly k symbols met before.
            child = NodeFromLeaf(at, symbol, found & ~kLeaf, start);
        }
        CountChanged(child);
        Node& node = nodes_[child];
        const bool joins = node.count < 2;
        if (node.count == 0 || (node.first_occurrence != kUnknown && start < node.first_occurrence)) {
            node.first_occurrence = start;
        }
        node.count += added;
        if (joins) JoinGroup(child);
        CountSettled(child);
        run_path_.push_back(child);
    }
    for (std::int32_t p = 0; p < length; ++p) {
        const std::int32_t slot = run_[p];
        const std::int32_t reach = p == 0 && leaf ? length - 1 : std::min<std::int32_t>(length - p, max_depth_);
        EndPath(slot, run_path_[reach], run_[p + reach - 1]);
        Extend(slot);
    }
}

void RepeatTrie::Attach(std::int32_t slot) {
    EndPath(slot, kRoot, -1);
}

std::int32_t RepeatTrie::NewNode(std::int32_t parent, std::int32_t symbol) {
    std::int32_t index;
    if (free_node_ < 0) {
        index = static_cast<std::int32_t>(nodes_.size());
        nodes_.push_back(Node{});
        stretch_tops_.push_back(-1);
    } else {
        index = free_node_;
        free_node_ = nodes_[index].next_sibling;
        nodes_[index] = Node{};
        stretch_tops_[index] = -1;
    }
    Node& node = nodes_[index];
    node.parent = parent;
    node.symbol = symbol;
    node.depth = nodes_[parent].depth + 1;
    node.next_sibling = nodes_[parent].first_child;
    if (node.next_sibling >= 0) nodes_[node.next_sibling].prev_sibling = index;
    Node& above = nodes_[parent];
    node.run = parent == kRoot || (above.run && above.symbol == symbol);
    if (node.run) {
        std::vector<std::int32_t>& chain = chains_[symbol];
        if (chain.size() <= static_cast<std::size_t>(node.depth))
            chain.resize(static_cast<std::size_t>(node.depth) + 1, -1);
        chain[node.depth] = index;
    }
    above.first_child = index;
    above.child_symbols |= SymbolBit(symbol);
    if (above.child_nodes == kHashedChildren) {
        children_.Insert(ChildKey(parent, symbol), index);
    } else if (++above.child_nodes > kListedChildren) {
        // One child too many to look through: from now on the table holds them all.
        for (std::int32_t child = index; child >= 0; child = nodes_[child].next_sibling)
            children_.Insert(ChildKey(parent, nodes_[child].symbol), child);
        above.child_nodes = kHashedChildren;
    }
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
    Node& above = nodes_[node.parent];
    if (above.child_nodes == kHashedChildren) {
        children_.Erase(ChildKey(node.parent, node.symbol));
    } else {
        --above.child_nodes;
    }
    if (node.run) chains_[node.symbol][node.depth] = -1;
    node.parent = -1;
    node.next_sibling = free_node_;
    free_node_ = index;
}

void RepeatTrie::JoinGroup(std::int32_t index) {
    Node& node = nodes_[index];
    if (groups_.size() <= static_cast<std::size_t>(node.depth))
        groups_.resize(static_cast<std::size_t>(node.depth) + 1);
    if (group_counts_.size() <= static_cast<std::size_t>(node.depth))
        group_counts_.resize(static_cast<std::size_t>(node.depth) + 1);
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
    if (moved != index && node.depth <= longest_overlapping_) ListByLength(moved_nodes_, node.depth, moved);
    node.group_index = -1;
    // The lists ask for the longest group at every pass: once a long repeat is replaced, its
    // thousands of lengths would be looked through empty.
    while (groups_.size() > 1 && groups_.back().empty())
        groups_.pop_back();
}

// A word's count is about to change: what was worked out from its occurrences is stale, and the
// word is listed for the copies of counts kept outside the trie.
void RepeatTrie::CountChanged(std::int32_t index) {
    Node& node = nodes_[index];
    node.kept = kUnknown;
    if (node.group_index >= 0) group_counts_[node.depth].Remove(node.count);
    // Longer words are never copied, their groups answering from the count ranges; a replacement
    // inside a long repeat changes millions of them.
    if (!node.changed && node.depth <= longest_overlapping_) {
        node.changed = true;
        ListByLength(changed_nodes_, node.depth, index);
    }
}

void RepeatTrie::CountSettled(std::int32_t index) {
    const Node& node = nodes_[index];
    if (node.group_index >= 0) group_counts_[node.depth].Add(node.count);
}

// Walks the slot down from where its path ends for as long as the word it has reached repeats.
// A word that starts to repeat takes the slot that ended there alone down with it.
void RepeatTrie::Extend(std::int32_t slot) {
    pending_.push_back(slot);
    while (!pending_.empty()) {
        const std::int32_t start = pending_.back();
        pending_.pop_back();
        const std::int32_t from = slots_[start].path_end;
        std::int32_t at = from;
        int depth = nodes_[at].depth;
        std::int32_t end = slots_[start].end_slot;
        while (depth < max_depth_) {
            const std::int32_t next = depth == 0 ? start : text_.Next(end);
            if (next < 0) break;
            const std::int32_t symbol = text_.Symbol(next);
            const std::int32_t found = FindChild(at, symbol);
            if (found < 0) {
                // The word occurs here only: the slot's path ends in a leaf.
                InsertLeaf(at, symbol, start);
                break;
            }
            // A slot walked on twice (cut for two occurrences) finds its own leaf: its path is whole.
            if (found == (kLeaf | start)) break;
            if ((found & kLeaf) != 0) {
                at = WalkTogether(at, next, found & ~kLeaf, start, end);
                break;
            }
            const std::int32_t child = found;
            Step();
            CountChanged(child);
            Node& node = nodes_[child];
            ++node.count;
            if (node.count == 1 || (node.first_occurrence != kUnknown && start < node.first_occurrence)) {
                node.first_occurrence = start;
            }
            if (node.count == 2) JoinGroup(child);
            CountSettled(child);
            at = child;
            ++depth;
            end = next;
        }
        // The slot is listed at the end of its path once, where the walk stops.
        if (at != from) {
            RemoveSlot(from, start);
            EndPath(start, at, end);
        }
    }
}

// A second occurrence of the word that the leaf stood for: the two share it and, inside a long
// repeat, thousands of longer words, each new to the trie and theirs alone until their symbols
// part. Walked one slot at a time, each of those words would first be a leaf of one slot and be
// taken back as the other met it.
std::int32_t RepeatTrie::WalkTogether(std::int32_t at, std::int32_t next, std::int32_t other, std::int32_t start,
                                      std::int32_t& end) {
    DropLeaf(other);
    RemoveSlot(at, other);
    std::int32_t other_next = at == kRoot ? other : text_.Next(slots_[other].end_slot);
    std::int32_t other_end = other_next;
    for (;;) {
        Step();
        const std::int32_t child = NewNode(at, text_.Symbol(next));
        nodes_[child].border = BorderOfNew(child, start);
        CountChanged(child);
        nodes_[child].count = 2;
        nodes_[child].first_occurrence = std::min(start, other);
        JoinGroup(child);
        CountSettled(child);
        at = child;
        end = next;
        other_end = other_next;
        if (nodes_[child].depth >= max_depth_) break;
        next = text_.Next(end);
        other_next = text_.Next(other_end);
        if (next >= 0 && other_next >= 0 && text_.Symbol(next) == text_.Symbol(other_next)) continue;
        for (const auto& [slot, after] : {std::pair{start, next}, std::pair{other, other_next}}) {
            if (after >= 0) InsertLeaf(at, text_.Symbol(after), slot);
        }
        break;
    }
    EndPath(other, at, other_end);
    return at;
}

// A second occurrence of the word the leaf of `other` stood for, found from `start`: the leaf
// becomes a node that counts the one occurrence, and `other` walks on from there.
std::int32_t RepeatTrie::NodeFromLeaf(std::int32_t at, std::int32_t symbol, std::int32_t other, std::int32_t start) {
    children_.Erase(ChildKey(at, symbol));
    slots_[other].has_leaf = false;
    const std::int32_t child = NewNode(at, symbol);
    nodes_[child].border = BorderOfNew(child, start);
    RemoveSlot(at, other);
    EndPath(other, child, at == kRoot ? other : text_.Next(slots_[other].end_slot));
    nodes_[child].count = 1;
    nodes_[child].first_occurrence = other;
    pending_.push_back(other);
    return child;
}

// A node's first few children are looked through before the child table: a child found there is
// the node read next anyway, where the table would cost one more trip to memory. Leaves are only
// in the table, as are the children of a word with many continuations.
std::int32_t RepeatTrie::FindChild(std::int32_t node, std::int32_t symbol) const {
    if ((nodes_[node].child_symbols & SymbolBit(symbol)) != 0) {
        std::int32_t child = nodes_[node].first_child;
        for (int looked = 0; child >= 0 && looked < kListedChildren; ++looked, child = nodes_[child].next_sibling) {
            if (nodes_[child].symbol == symbol) return child;
        }
    }
    return children_.Find(ChildKey(node, symbol));
}

void RepeatTrie::InsertLeaf(std::int32_t node, std::int32_t symbol, std::int32_t slot) {
    children_.Insert(ChildKey(node, symbol), kLeaf | slot);
    slots_[slot].has_leaf = true;
}

// The word one symbol longer than where the slot's path ends, when it occurs there only.
std::uint64_t RepeatTrie::LeafKey(std::int32_t slot) const {
    if (!slots_[slot].has_leaf) return kNoLeaf;
    const std::int32_t at = slots_[slot].path_end;
    const std::int32_t next = at == kRoot ? slot : text_.Next(slots_[slot].end_slot);
    return ChildKey(at, text_.Symbol(next));
}

bool RepeatTrie::ReachesPast(std::int32_t slot, int length) const {
    // Only a path that ends at that length needs its leaf looked up.
    const int depth = nodes_[slots_[slot].path_end].depth;
    return depth != length ? depth > length : LeafKey(slot) != kNoLeaf;
}

void RepeatTrie::DropLeaf(std::int32_t slot) {
    const std::uint64_t key = LeafKey(slot);
    if (key == kNoLeaf) return;
    children_.Erase(key);
    slots_[slot].has_leaf = false;
}

// Takes the slot off every word longer than `depth` symbols that starts there. A word left with
// one occurrence becomes a leaf of that occurrence's path again.
void RepeatTrie::Cut(std::int32_t slot, int depth, std::int32_t end) {
    std::int32_t at = slots_[slot].path_end;
    if (nodes_[at].depth < depth) return;
    DropLeaf(slot);
    if (nodes_[at].depth == depth) return;
    RemoveSlot(at, slot);
    std::int32_t single = -1;
    while (nodes_[at].depth > depth) {
        if (nodes_[at].run) {
            // The rest is the chain of runs, taken off later in one sweep for all slots.
            DeferChainCut(at, depth, slot);
            at = depth == 0 ? kRoot : chains_[nodes_[at].symbol][depth];
            break;
        }
        Step();
        CountChanged(at);
        Node& node = nodes_[at];
        const std::int32_t parent = node.parent;
        --node.count;
        if (node.first_occurrence == slot) node.first_occurrence = kUnknown;
        if (node.count == 1) {
            LeaveGroup(at);
            single = at;
        } else if (node.count == 0) {
            DeleteNode(at);
        }
        CountSettled(at);
        at = parent;
    }
    EndPath(slot, at, end);
    if (single >= 0) Collapse(single);
}

void RepeatTrie::DeferChainCut(std::int32_t node, int depth, std::int32_t slot) {
    std::vector<std::int32_t>& drops = chain_cuts_[nodes_[node].symbol];
    const auto longest = static_cast<std::size_t>(nodes_[node].depth);
    if (drops.size() < longest + 2) drops.resize(longest + 2, 0);
    ++drops[static_cast<std::size_t>(depth) + 1];
    --drops[longest + 1];
    chain_cut_slots_.push_back(slot);
}

// From the longest run down, as single cuts would leave them: a run with no occurrence left
// goes, and the shortest with one left collapses with the longer ones into its slot's leaf.
void RepeatTrie::SettleChainCuts() {
    if (chain_cuts_.empty()) return;
    std::sort(chain_cut_slots_.begin(), chain_cut_slots_.end());
    auto was_cut = [&](std::int32_t slot) {
        return std::binary_search(chain_cut_slots_.begin(), chain_cut_slots_.end(), slot);
    };
    for (auto& [symbol, drops] : chain_cuts_) {
        std::partial_sum(drops.begin(), drops.end(), drops.begin());
        const std::vector<std::int32_t>& chain = chains_[symbol];
        std::int32_t single = -1;
        for (std::size_t depth = drops.size() - 1; depth >= 1; --depth) {
            if (drops[depth] == 0) continue;
            Step();
            const std::int32_t index = chain[depth];
            CountChanged(index);
            Node& node = nodes_[index];
            node.count -= drops[depth];
            if (node.first_occurrence != kUnknown && was_cut(node.first_occurrence)) {
                node.first_occurrence = kUnknown;
            }
            if (node.count <= 1) LeaveGroup(index);
            if (node.count == 1) {
                single = index;
            } else if (node.count == 0) {
                DeleteNode(index);
            }
            CountSettled(index);
        }
        if (single >= 0) Collapse(single);
    }
    chain_cuts_.clear();
    chain_cut_slots_.clear();
}

// A word with one occurrence left: it and the longer words below it belong to that occurrence
// alone and go, and the occurrence's path ends in a leaf in the word's place.
void RepeatTrie::Collapse(std::int32_t index) {
    const std::int32_t slot = SomeOccurrence(index);
    std::int32_t at = slots_[slot].path_end;
    DropLeaf(slot);
    RemoveSlot(at, slot);
    const std::int32_t parent = nodes_[index].parent;
    std::int32_t end = -1;
    if (parent != kRoot) {
        end = slots_[slot].end_slot;
        for (int steps = nodes_[at].depth - nodes_[parent].depth; steps > 0; --steps)
            end = text_.Prev(end);
    }
    const std::int32_t symbol = nodes_[index].symbol;
    for (;;) {
        const std::int32_t above = nodes_[at].parent;
        DeleteNode(at);
        if (at == index) break;
        at = above;
    }
    EndPath(slot, parent, end);
    InsertLeaf(parent, symbol, slot);
}

// The paths that reach into an occurrence are cut back while they still describe the old text,
// then every changed path is walked down again through the new one.
bool RepeatTrie::Replace(const std::vector<std::int32_t>& starts, int length, std::int32_t code) {
    run_counts_.clear();
    std::vector<std::int32_t> symbols;
    for (std::int32_t slot = starts.front(); static_cast<int>(symbols.size()) < length; slot = text_.Next(slot))
        symbols.push_back(text_.Symbol(slot));

    std::vector<CutBack> cuts;
    std::vector<std::int32_t> removed;
    std::int64_t cut_depths = 0;  // how deep the paths cut run, all together
    std::int64_t cut_steps = 0;   // how many of their nodes lie past the cut
    for (const std::int32_t start : starts) {
        // Paths are monotone: if the one from a slot does not reach the occurrence, no earlier one
        // does. A slot before the last occurrence that reaches this one is cut for that one first.
        const std::int32_t last_removed = removed.empty() ? -1 : removed.back();
        std::int32_t before = text_.Prev(start);
        for (int distance = 1; before >= 0 && before != last_removed && ReachesPast(before, distance); ++distance) {
            const int depth = nodes_[slots_[before].path_end].depth;
            cut_depths += depth;
            cut_steps += depth - distance;
            cuts.push_back(CutBack{before, distance, text_.Prev(start)});
            before = text_.Prev(before);
        }
        for (std::int32_t slot = start, k = 0; k < length; ++k, slot = text_.Next(slot))
            removed.push_back(slot);
    }
    // The paths of the occurrences' own slots go whole, taken to run as deep as the others.
    if (!cuts.empty())
        cut_steps += cut_depths / static_cast<std::int64_t>(cuts.size()) * static_cast<std::int64_t>(removed.size());
    const std::int32_t slots = text_.SlotCount();
    if (slots >= kLeastSlotsForRebuild && cut_steps > slots &&
        cuts.size() + removed.size() > static_cast<std::size_t>(slots / kSlotsPerCutForRebuild)) {
        for (const std::int32_t start : starts)
            text_.Replace(start, length, code);
        text_.AppendRule(code, symbols);
        return false;
    }
    for (std::size_t j = 0; j < cuts.size(); ++j) {
        PrefetchAhead(cuts, j, true);
        Cut(cuts[j].slot, cuts[j].depth, cuts[j].end);
    }
    for (const std::int32_t slot : removed) {
        Cut(slot, 0, -1);
        RemoveSlot(kRoot, slot);
        slots_[slot].path_end = -1;
    }
    SettleChainCuts();
    if (stopped_) return true;
    for (const std::int32_t start : starts)
        text_.Replace(start, length, code);
    const std::int32_t first_new = text_.AppendRule(code, symbols);
    FitSlotStates();

    for (const std::int32_t start : starts) {
        if (stopped_) return true;
        Attach(start);
        Extend(start);
    }
    AttachSlots(first_new, text_.SlotCount());
    for (std::size_t j = 0; j < cuts.size(); ++j) {
        PrefetchAhead(cuts, j, false);
        if (slots_[cuts[j].slot].path_end >= 0) Extend(cuts[j].slot);
    }
    return true;
}

// ---- Questions about one word ----

void RepeatTrie::Occurrences(std::int32_t index, std::vector<std::int32_t>& slots) const {
    std::vector<std::int32_t> to_visit{index};
    while (!to_visit.empty()) {
        const std::int32_t at = to_visit.back();
        to_visit.pop_back();
        for (std::int32_t slot = nodes_[at].first_slot; slot >= 0; slot = slots_[slot].next_at_node)
            slots.push_back(slot);
        for (std::int32_t child = nodes_[at].first_child; child >= 0; child = nodes_[child].next_sibling)
            to_visit.push_back(child);
    }
}

// Every slot is listed where its path ends, so a word's node or one below it lists one.
std::int32_t RepeatTrie::SomeOccurrence(std::int32_t index) const {
    if (nodes_[index].first_occurrence != kUnknown) return nodes_[index].first_occurrence;
    std::int32_t at = index;
    while (nodes_[at].first_slot < 0)
        at = nodes_[at].first_child;
    return nodes_[at].first_slot;
}

std::int32_t RepeatTrie::FirstOccurrence(std::int32_t index) {
    if (nodes_[index].first_occurrence == kUnknown) {
        std::vector<std::int32_t> slots;
        Occurrences(index, slots);
        nodes_[index].first_occurrence = *std::min_element(slots.begin(), slots.end());
    }
    return nodes_[index].first_occurrence;
}

// A top found earlier still holds while its count is the node's and the count changes above it:
// counts never grow from a word to a longer one, so the words between all have that count too.
// A node keeps its top until it goes, and its prefixes outlive it.
std::int32_t RepeatTrie::StretchTop(std::int32_t node) {
    const std::int32_t count = nodes_[node].count;
    auto is_top = [&](std::int32_t at) { return nodes_[at].depth <= 2 || nodes_[nodes_[at].parent].count != count; };
    auto holds = [&](std::int32_t top) { return top >= 0 && nodes_[top].count == count && is_top(top); };
    std::int32_t at = node;
    stretch_walk_.clear();
    while (!holds(stretch_tops_[at]) && !is_top(at)) {
        stretch_walk_.push_back(at);
        at = nodes_[at].parent;
    }
    const std::int32_t top = holds(stretch_tops_[at]) ? stretch_tops_[at] : at;
    stretch_tops_[at] = top;
    for (const std::int32_t walked : stretch_walk_)
        stretch_tops_[walked] = top;
    return top;
}

// One step of the prefix function of Knuth, Morris and Pratt: the parent's border is extended by
// the new symbol, or the border of that border is tried, and so on. Short borders are the rule in
// real text, so this costs a few steps; a long one is left to SelfOverlaps.
std::int8_t RepeatTrie::BorderOfNew(std::int32_t index, std::int32_t start) {
    const Node& node = nodes_[index];
    if (node.depth == 1) return 0;
    std::int32_t k = nodes_[node.parent].border;
    for (;;) {
        if (k == kUnknown || k == kLongBorder) return kUnknown;
        if (k == 0) return text_.Symbol(start) == node.symbol ? 1 : 0;
        if (text_.Symbol(text_.Advance(start, k)) == node.symbol) return static_cast<std::int8_t>(k + 1);
        std::int32_t prefix = kRoot;
        for (std::int32_t slot = start, step = 0; step < k; ++step, slot = text_.Next(slot))
            prefix = FindChild(prefix, text_.Symbol(slot));
        k = nodes_[prefix].border;
    }
}

// Two occurrences of a word can overlap only when some proper prefix of it is also a suffix.
bool RepeatTrie::SelfOverlaps(std::int32_t index) {
    Node& node = nodes_[index];
    if (node.border != kUnknown) return node.border > 0;
    std::vector<std::int32_t> word(static_cast<std::size_t>(node.depth));
    std::vector<std::int32_t> path(word.size());
    for (std::int32_t at = index; at != kRoot; at = nodes_[at].parent) {
        word[static_cast<std::size_t>(nodes_[at].depth - 1)] = nodes_[at].symbol;
        path[static_cast<std::size_t>(nodes_[at].depth - 1)] = at;
    }
    // The longest border of each prefix by the prefix function of Knuth, Morris and Pratt. The
    // prefixes on the path learn theirs too: a walk that asks about a group of long words asks
    // about their prefixes next, and each would read its word again.
    std::vector<std::int32_t> border(word.size(), 0);
    for (std::size_t i = 1; i < word.size(); ++i) {
        std::int32_t k = border[i - 1];
        while (k > 0 && word[i] != word[static_cast<std::size_t>(k)])
            k = border[static_cast<std::size_t>(k - 1)];
        border[i] = word[i] == word[static_cast<std::size_t>(k)] ? k + 1 : k;
    }
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (nodes_[path[i]].border == kUnknown)
            nodes_[path[i]].border = static_cast<std::int8_t>(std::min<std::int32_t>(border[i], kLongBorder));
    }
    return nodes_[index].border > 0;
}

void RepeatTrie::KeptOccurrences(std::int32_t index, std::vector<std::int32_t>& starts,
                                 std::vector<std::int32_t>& ends) {
    starts.clear();
    Occurrences(index, starts);
    std::sort(starts.begin(), starts.end());
    ends.resize(starts.size());
    const int length = nodes_[index].depth;
    const std::size_t kept =
        KeepApart(starts, ends, [&](std::size_t j) { return text_.Advance(starts[j], length - 1); });
    starts.resize(kept);
    ends.resize(kept);
}

// A word's prefixes and continuations that occur as often occur where it does: a walk that asks
// about a long repeat's words asks about each of them, and listing the occurrences for each would
// cost the length of the repeat every time. The gaps between the occurrences are read once, as far
// as the longest of them reaches, and each word keeps the occurrences at least its length apart.
std::int32_t RepeatTrie::KeptAlongStretch(std::int32_t index) {
    const std::int32_t count = nodes_[index].count;
    std::int32_t top = index;
    while (nodes_[top].parent != kRoot && nodes_[nodes_[top].parent].count == count)
        top = nodes_[top].parent;
    std::int32_t bottom = index;
    for (std::int32_t child = nodes_[bottom].first_child; child >= 0;) {
        if (nodes_[child].count == count) {
            bottom = child;
            child = nodes_[bottom].first_child;
        } else {
            child = nodes_[child].next_sibling;
        }
    }
    std::vector<std::int32_t> starts;
    Occurrences(bottom, starts);
    std::sort(starts.begin(), starts.end());
    // Symbols from each occurrence to the next, or `longest` where it lies that far or in another rule.
    const int longest = nodes_[bottom].depth;
    std::vector<int> gaps(starts.size(), longest);
    for (std::size_t j = 0; j + 1 < starts.size(); ++j) {
        std::int32_t slot = starts[j];
        for (int gap = 0; gap < longest && slot >= 0; ++gap, slot = text_.Next(slot)) {
            if (slot == starts[j + 1]) {
                gaps[j] = gap;
                break;
            }
        }
    }
    for (std::int32_t at = bottom;; at = nodes_[at].parent) {
        const int length = nodes_[at].depth;
        std::int32_t kept = 1;
        int apart = 0;  // symbols from the last occurrence kept, as far as `longest`
        for (std::size_t j = 0; j + 1 < starts.size(); ++j) {
            apart = std::min(apart + gaps[j], longest);
            if (apart >= length) {
                ++kept;
                apart = 0;
            }
        }
        nodes_[at].kept = kept;
        if (at == top) break;
    }
    return nodes_[index].kept;
}

std::int32_t RepeatTrie::Kept(std::int32_t index) {
    if (nodes_[index].depth > longest_overlapping_) return nodes_[index].count;
    const bool run = nodes_[index].run && nodes_[index].depth >= 2;
    if (!run && (nodes_[index].border == 0 || nodes_[index].apart || !SelfOverlaps(index))) return nodes_[index].count;
    if (nodes_[index].kept == kUnknown) {
        std::int32_t kept = run ? KeptOfRun(index) : KeptFromPeriods(index);
        if (kept == kUnknown) kept = KeptAlongStretch(index);
        nodes_[index].kept = kept;
    }
    return nodes_[index].kept;
}

// Within a longest run of r symbols a, the run a^k keeps floor(r / k) occurrences, and two such
// runs never meet. With N(j) = count(a^j) - count(a^(j+1)) runs of j symbols or more, the sum of
// floor(r / k) over the runs is the sum of N(t k) over t >= 1: a few counts read off the chain of
// runs instead of the occurrences, which in a run of m symbols number about m for each of m lengths.
std::int32_t RepeatTrie::KeptOfRun(std::int32_t index) {
    const std::int32_t symbol = nodes_[index].symbol;
    auto [entry, added] = run_counts_.try_emplace(symbol);
    std::vector<std::int32_t>& counts = entry->second;
    if (added) {
        counts.push_back(0);  // no run of no symbols is asked for
        std::int32_t at = kRoot;
        for (int depth = 0;; ++depth) {
            if (depth >= max_depth_) {
                counts.clear();
                break;
            }
            const std::int32_t found = FindChild(at, symbol);
            if (found < 0) break;
            if ((found & kLeaf) != 0) {
                // A run that occurs once: the next longer one occurs no more.
                counts.push_back(1);
                break;
            }
            counts.push_back(nodes_[found].count);
            at = found;
        }
        if (!counts.empty()) counts.push_back(0);
    }
    if (counts.empty()) return kUnknown;
    const auto length = static_cast<std::size_t>(nodes_[index].depth);
    std::int32_t kept = 0;
    for (std::size_t j = length; j + 1 < counts.size(); j += length)
        kept += counts[j] - counts[j + 1];
    return kept;
}

// A word whose one border is b can overlap itself only at distance p = L - b, which is at least
// L / 2: its occurrences fall into chains, each overlapping the one before, and of a chain of m
// every second one is dropped, ceil(m / 2) kept. The word continued by k periods, E(k), occurs
// wherever a chain has k more occurrences, so the chains of m > k number count(E(k)) - count(E(k + 1)),
// and the kept count is count(E(0)) - count(E(1)) + count(E(2)) - ... The counts are read off the
// trie along the periods, a few steps as a rule, instead of listing the occurrences, which a short
// word of a genome has by the thousand and a word of a long repeat finds only at the end of the
// repeat. Answers kUnknown for any other word, or where the trie stops short.
std::int32_t RepeatTrie::KeptFromPeriods(std::int32_t index) const {
    const Node& word = nodes_[index];
    if (word.border <= 0 || word.border == kLongBorder) return kUnknown;
    // The prefix of the border's length, reached by the word's first symbols: a border of its own
    // would be a second border of the word.
    std::int32_t at = kRoot;
    std::int32_t slot = SomeOccurrence(index);
    for (int i = 0; i < word.border; ++i, slot = text_.Next(slot))
        at = FindChild(at, text_.Symbol(slot));
    if (nodes_[at].border != 0) return kUnknown;

    // The symbols of a period, read from an occurrence of the word as far as the walk needs them.
    const int period = word.depth - word.border;
    std::vector<std::int32_t> repeated;
    std::int32_t kept = word.count;
    std::int32_t sign = -1;
    at = index;
    for (int depth = word.depth;;) {
        for (int step = 0; step < period; ++step, ++depth) {
            if (depth >= max_depth_) return kUnknown;
            if (static_cast<int>(repeated.size()) == step) {
                repeated.push_back(text_.Symbol(slot));
                slot = text_.Next(slot);
            }
            const std::int32_t found = FindChild(at, repeated[static_cast<std::size_t>(step)]);
            if (found < 0) return kept;
            if ((found & kLeaf) != 0) {
                // One occurrence goes on from here: each further period it runs to is one more term.
                std::int32_t next = text_.Next(slots_[found & ~kLeaf].end_slot);
                for (int from = step;; from = 0, sign = -sign) {
                    for (int more = from; more < period; ++more, next = text_.Next(next)) {
                        if (next < 0) return kept;
                        if (static_cast<int>(repeated.size()) == more) {
                            repeated.push_back(text_.Symbol(slot));
                            slot = text_.Next(slot);
                        }
                        if (text_.Symbol(next) != repeated[static_cast<std::size_t>(more)]) return kept;
                    }
                    kept += sign;
                }
            }
            at = found;
        }
        kept += sign * nodes_[at].count;
        sign = -sign;
    }
}

}  // namespace tessarin
