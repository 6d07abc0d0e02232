#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

#include "common/open_hash_map.h"
#include "common/remapped_array.h"
#include "grammar/grammar.h"
#include "grammar/linked_rules.h"
#include "grammar/overlapping_words.h"
#include "subwords/suffix_array.h"

namespace tessarin {

// Every word of a grammar's rules, of up to `max_depth` symbols, in a trie that is kept up to
// date as rules are added, so that a pass costs what its replacements touch instead of a whole
// new search. Each slot of the rules lies on the path of the words that start there, down to the
// shortest one that occurs only once; a node counts the slots on its path, which is its word's
// number of occurrences. Nodes are the words that repeat, kept in groups by length; a word that
// occurs once is a leaf, an entry of the child table that names its slot.
class RepeatTrie {
  public:
    // Called every few milliseconds of work, with the share of the build done while the trie is
    // built and with -1 while a replacement is worked in; answers true to stop the work.
    using Poll = std::function<bool(double scanned)>;

    // No word of more than `longest_overlapping` symbols has two occurrences that overlap, as the
    // caller may know from the sequence the rules stand for: such words keep every occurrence.
    // `suffixes`, where the caller has them, are the sorted suffixes of JoinRules(rules), and
    // `overlapping` what was read off them of the words that overlap themselves. `tables` are the
    // ones an earlier trie let go of, to be written over.
    struct Tables;
    RepeatTrie(std::span<const Rule> rules, int max_depth, Poll poll = {},
               int longest_overlapping = std::numeric_limits<int>::max(),
               std::optional<SuffixArray> suffixes = std::nullopt, const OverlappingWords& overlapping = {},
               Tables tables = {});

    int max_depth() const { return max_depth_; }
    // The poll answered true: the trie is left half built or half updated and must be dropped.
    bool stopped() const { return stopped_; }
    const LinkedRules& text() const { return text_; }

    // The nodes of the words of `length` symbols that occur at least twice, in no order.
    int GroupSize(int length) const;
    const std::vector<std::int32_t>& Group(int length) const { return groups_[length]; }
    // The greatest length that has a group, or 0.
    int GroupCount() const { return static_cast<int>(groups_.size()) - 1; }
    // The greatest and the least count in a group, and how many words hold the greatest; 0 for an
    // empty group.
    struct CountRange {
        std::int32_t most = 0;
        std::int32_t at_most = 0;
        std::int32_t least = 0;
    };
    CountRange GroupCountRange(int length);
    int longest_overlapping() const { return longest_overlapping_; }

    int Count(std::int32_t node) const { return nodes_[node].count; }
    int Depth(std::int32_t node) const { return nodes_[node].depth; }
    std::int32_t Parent(std::int32_t node) const { return nodes_[node].parent; }
    std::int32_t Symbol(std::int32_t node) const { return nodes_[node].symbol; }
    // The node where the slot's path ends.
    std::int32_t PathEnd(std::int32_t slot) const { return slots_[slot].path_end; }
    // Appends the slots whose paths end at the nodes of `depth`.
    void SlotsEndingAt(int depth, std::vector<std::int32_t>& slots) const;
    // Its place in Group(Depth(node)), or -1 while the word does not repeat.
    std::int32_t GroupIndex(std::int32_t node) const { return nodes_[node].group_index; }
    // The words one symbol longer that repeat: from the first child, each to the next; -1 ends.
    std::int32_t FirstChild(std::int32_t node) const { return nodes_[node].first_child; }
    std::int32_t NextSibling(std::int32_t node) const { return nodes_[node].next_sibling; }
    // False for a node that has gone (and for the root).
    bool Alive(std::int32_t node) const { return nodes_[node].parent >= 0; }
    // Asks the memory for the node some reads before it is needed.
    void Prefetch(std::int32_t node) const { __builtin_prefetch(&nodes_[node]); }
    // The first slot where the word occurs.
    std::int32_t FirstOccurrence(std::int32_t node);
    // The shortest prefix of the word, of 2 symbols or more, that occurs as often as the word.
    std::int32_t StretchTop(std::int32_t node);
    // Asks the memory for what StretchTop reads first.
    void PrefetchStretchTop(std::int32_t node) const {
        __builtin_prefetch(&nodes_[node]);
        __builtin_prefetch(&stretch_tops_[node]);
    }
    // The number of occurrences left when each one that starts inside the last one kept is dropped.
    std::int32_t Kept(std::int32_t node);
    // Kept(node) where it is known without listing the occurrences, -1 where it is not.
    std::int32_t KnownKept(std::int32_t node) const {
        const Node& word = nodes_[node];
        return word.border == 0 || (word.apart && !word.run) || word.depth > longest_overlapping_ ? word.count
                                                                                                  : word.kept;
    }
    // Those occurrences, by their first and last slots, in text order.
    void KeptOccurrences(std::int32_t node, std::vector<std::int32_t>& starts, std::vector<std::int32_t>& ends);

    // Per length (past the end, none), the nodes whose count changed since the last call (not
    // counting the build), once for each word they held, of words of up to longest_overlapping()
    // symbols; listed by the length their word had then. They may have gone, or been taken for other words, since.
    // Valid until the next call.
    using NodesByLength = std::vector<std::vector<std::int32_t>>;
    const NodesByLength& TakeChangedNodes();
    // Per length as above, the nodes moved to another place of their group, as a word left it,
    // since the last call; they may have gone, or left their groups, since.
    NodesByLength TakeMovedNodes() { return std::exchange(moved_nodes_, {}); }
    // Whether the node is among those the last TakeChangedNodes answered.
    bool TakenAsChanged(std::int32_t node) const { return nodes_[node].taken_as_changed; }

    // Replaces the occurrences starting at `starts` (in text order, not overlapping) of a word of
    // `length` symbols by `code`, and appends the rule `code` -> word. Where it would cut more of the
    // trie than building a trie afresh costs, only the text is changed and the answer is false: the
    // trie no longer matches the text and is to be built again from text().
    bool Replace(const std::vector<std::int32_t>& starts, int length, std::int32_t code);

  private:
    static constexpr std::int32_t kRoot = 0;
    static constexpr std::int32_t kUnknown = -1;
    static constexpr std::int8_t kLongBorder = 127;
    // A word that occurs once is no node but an entry of the child table holding its slot, marked
    // by this bit: most slots end their paths in one, and an entry is a fraction of a node.
    static constexpr std::int32_t kLeaf = 1 << 30;
    static constexpr std::uint64_t kNoLeaf = ~std::uint64_t{0};
    // A node with up to this many children finds them through its list alone, and they stay out
    // of the child table: most nodes of a genome's trie have one or two, and the table would
    // otherwise hold an entry for every node. A node with more has them all in the table.
    static constexpr int kListedChildren = 4;
    static constexpr std::uint8_t kHashedChildren = 255;

    struct Node {
        std::int32_t parent = -1;  // -1 for the root and for a node that has gone
        std::int32_t symbol = 0;
        std::int32_t depth = 0;
        std::int32_t count = 0;  // slots whose path passes here
        std::int32_t first_child = -1;
        std::int32_t next_sibling = -1;
        std::int32_t prev_sibling = -1;
        std::int32_t first_slot = -1;   // slots whose path ends here
        std::int32_t group_index = -1;  // place in groups_[depth] while the word repeats
        std::int32_t first_occurrence = kUnknown;
        std::int32_t kept = kUnknown;
        // The length of the longest proper prefix that is also a suffix, up to kLongBorder, which
        // stands for that length or more; two occurrences can overlap only when it is not 0.
        std::int8_t border = kUnknown;
        bool changed : 1 = false;           // listed in changed_nodes_
        bool taken_as_changed : 1 = false;  // listed in taken_changed_
        bool run : 1 = false;               // the word is one symbol over and over
        // No two occurrences overlap, as the build learnt from the suffixes; fewer occurrences, and
        // those of the rule that stands for a word containing this one, keep it so.
        bool apart : 1 = false;
        // The children that are nodes, while there are at most kListedChildren; kHashedChildren
        // once they have all gone into the child table.
        std::uint8_t child_nodes = 0;
        // A bit per class of symbols (by their lowest three bits) for each child that is a node:
        // a child table look-up for a word that occurs once need not read the listed children
        // first. Bits of children gone may stay.
        std::uint8_t child_symbols = 0;
    };

    // What the trie knows of one slot, in one place: a cut or a walk reads it all at once.
    struct SlotState {
        std::int32_t path_end = -1;  // the node where its path ends, -1 for a removed slot
        // The last slot of the word where its path ends, so that a path is walked on from its end
        // without stepping through a long word again.
        std::int32_t end_slot = -1;
        // The other slots whose paths end at the same node.
        std::int32_t next_at_node = -1;
        std::int32_t prev_at_node : 31 = -1;
        // Whether its path ends in a leaf, whose key then follows from the path's end, so that
        // neither finding nor dropping it looks in the child table first.
        bool has_leaf : 1 = false;
    };
    static_assert(sizeof(SlotState) == 16);

    static std::uint8_t SymbolBit(std::int32_t symbol) { return static_cast<std::uint8_t>(1U << (symbol & 7)); }

    static std::uint64_t ChildKey(std::int32_t parent, std::int32_t symbol) {
        return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(parent)) << 32) |
               static_cast<std::uint32_t>(symbol);
    }

    // A path that reaches into an occurrence being replaced, to be cut back to the slot before it.
    struct CutBack {
        std::int32_t slot;
        int depth;
        std::int32_t end;  // the slot before the occurrence: where the cut path ends
    };

    // Counts one step of work and polls once every kStepsPerPoll steps.
    void Step() {
        if (++steps_ % kStepsPerPoll == 0 && poll_ && !stopped_) stopped_ = poll_(scanned_);
    }
    // Ask the memory, some cuts or walks before they are needed, for what cutting or walking on a
    // slot's path reads: the paths a replacement touches are listed first, and each slot, node
    // and child-table entry is a trip to memory. Each stage reads only what an earlier one asked for.
    // First the slot's state;
    void PrefetchSlot(std::int32_t slot) const { __builtin_prefetch(&slots_[slot]); }
    // then the node where its path ends and the text where its word ends;
    void PrefetchPathEnd(std::int32_t slot) const {
        const SlotState& state = slots_[slot];
        if (state.path_end < 0) return;
        __builtin_prefetch(&nodes_[state.path_end]);
        if (state.end_slot >= 0) text_.Prefetch(state.end_slot);
    }
    // then the child-table entry of its leaf.
    void PrefetchLeaf(std::int32_t slot) const {
        const std::uint64_t key = LeafKey(slot);
        if (key != kNoLeaf) children_.Prefetch(key);
    }
    // The stages for the cuts ahead of the one at `j`; the leaves only while they are still there.
    void PrefetchAhead(const std::vector<CutBack>& cuts, std::size_t j, bool leaves) const {
        if (j + 3 * kPrefetchStage < cuts.size()) PrefetchSlot(cuts[j + 3 * kPrefetchStage].slot);
        if (j + 2 * kPrefetchStage < cuts.size()) PrefetchPathEnd(cuts[j + 2 * kPrefetchStage].slot);
        if (leaves && j + kPrefetchStage < cuts.size()) PrefetchLeaf(cuts[j + kPrefetchStage].slot);
    }
    // Sizes the slot states to the slots of the text.
    void FitSlotStates();
    // The child-table entry of the word `node` continued by `symbol`: a node, kLeaf | slot, or -1.
    std::int32_t FindChild(std::int32_t node, std::int32_t symbol) const;
    // Files the leaf of `slot`, whose word is that of `node` continued by `symbol`.
    void InsertLeaf(std::int32_t node, std::int32_t symbol, std::int32_t slot);
    // Attaches every slot of the rules the trie starts from, from their sorted suffixes (those of
    // JoinRules(rules), sorted here unless given).
    void AttachBySuffixes(std::span<const Rule> rules, std::optional<SuffixArray> suffixes,
                          const OverlappingWords& overlapping);
    // Attaches the slots from `first` up to (not including) `last`, fresh slots of whole rules,
    // walking each run of one symbol as one.
    void AttachSlots(std::int32_t first, std::int32_t last);
    void Attach(std::int32_t slot);
    // Attaches the slots of a longest run of one symbol, `run_` in text order.
    void AttachRun();
    void Extend(std::int32_t slot);
    // `start` reaches, at `next`, the word that the leaf of `other` under `at` stands for: both walk
    // on together. Answers where the path of `start` ends, its last slot in `end`.
    std::int32_t WalkTogether(std::int32_t at, std::int32_t next, std::int32_t other, std::int32_t start,
                              std::int32_t& end);
    std::int32_t NodeFromLeaf(std::int32_t at, std::int32_t symbol, std::int32_t other, std::int32_t start);
    // `end`: the last slot of the word of `depth` symbols that starts at `slot`.
    void Cut(std::int32_t slot, int depth, std::int32_t end);
    void Collapse(std::int32_t node);
    // Notes that the slot leaves the runs longer than `depth` symbols on the chain ending at `node`.
    void DeferChainCut(std::int32_t node, int depth, std::int32_t slot);
    // Takes off the chains of runs what the cuts deferred, once they are all known.
    void SettleChainCuts();
    // The child-table key of the slot's leaf, or kNoLeaf when its path ends without one.
    std::uint64_t LeafKey(std::int32_t slot) const;
    // Whether the words that start at the slot and are in the trie, its leaf included, run
    // longer than `length` symbols.
    bool ReachesPast(std::int32_t slot, int length) const;
    void DropLeaf(std::int32_t slot);
    std::int32_t NewNode(std::int32_t parent, std::int32_t symbol);
    // The border of a new node's word from its parent's, the word read at `start` in the text.
    std::int8_t BorderOfNew(std::int32_t node, std::int32_t start);
    void DeleteNode(std::int32_t node);
    void JoinGroup(std::int32_t node);
    void LeaveGroup(std::int32_t node);
    // Ends the slot's path at `node`, its word's last slot `end`, and lists it there.
    void EndPath(std::int32_t slot, std::int32_t node, std::int32_t end);
    void RemoveSlot(std::int32_t node, std::int32_t slot);
    // Called before a node's count changes, and after it has: the group's count range follows.
    void CountChanged(std::int32_t node);
    void CountSettled(std::int32_t node);
    bool SelfOverlaps(std::int32_t node);
    // Kept(node) for a word with one border, from the counts of the word continued by its period;
    // kUnknown for any other word.
    std::int32_t KeptFromPeriods(std::int32_t node) const;
    // Kept(node) for a run of one symbol, from the counts of longer runs; kUnknown where the trie
    // stops short of the longest.
    std::int32_t KeptOfRun(std::int32_t node);
    // Kept(node) from the occurrences, listed once for the whole stretch of prefixes and
    // continuations that occur as often, whose kept counts are all set.
    std::int32_t KeptAlongStretch(std::int32_t node);
    // A slot where the word occurs, found without listing the occurrences.
    std::int32_t SomeOccurrence(std::int32_t node) const;
    // The slots of every occurrence of the word, in no order.
    void Occurrences(std::int32_t node, std::vector<std::int32_t>& slots) const;

  public:
    // The trie's largest tables, handed on to the trie built next for the same rules after more
    // replacements, which is no larger: it writes over pages already mapped, where asking the
    // system for hundreds of megabytes afresh cost Maximum Gain's first passes on a genome 2.4
    // million page faults.
    struct Tables {
        LinkedRules text;
        RemappedArray<Node> nodes;
        RemappedArray<std::int32_t> stretch_tops;
        OpenHashMap children;
        RemappedArray<SlotState> slots;
    };
    // Leaves the trie without its tables; it is only to be dropped after this.
    Tables LetGoOfTables();

  private:
    static constexpr std::uint64_t kStepsPerPoll = 1 << 16;
    // A replacement that cuts more nodes off paths than the text has slots, on paths all over the
    // trie (more than a sixteenth of the slots), leaves the trie to be built again: each node cut
    // off and walked again costs about a third of a microsecond there, where a build costs half to
    // four fifths of one per slot, in order. The nodes of a long repeat's paths lie together and
    // cost a quarter of that, and its few paths never call for a build. A small trie is never
    // built again, as that would save nothing.
    static constexpr std::int32_t kSlotsPerCutForRebuild = 16;
    static constexpr std::int32_t kLeastSlotsForRebuild = 1024;
    static constexpr std::size_t kPrefetchStage = 6;

    LinkedRules text_;
    int max_depth_;
    int longest_overlapping_;
    Poll poll_;
    std::uint64_t steps_ = 0;
    double scanned_ = -1;
    bool stopped_ = false;
    RemappedArray<Node> nodes_;
    // The last node to go, and from it each to the one that went before, through next_sibling:
    // the long repeats of a genome free millions of nodes in its first passes.
    std::int32_t free_node_ = -1;
    RemappedArray<std::int32_t> stretch_tops_;       // per node: its StretchTop as last found, or -1
    std::vector<std::int32_t> stretch_walk_;         // room for StretchTop
    OpenHashMap children_;                           // (parent, symbol) -> child of a node with many, or kLeaf | slot
    RemappedArray<SlotState> slots_;                 // per slot
    std::vector<std::vector<std::int32_t>> groups_;  // per length
    // Per length, the greatest and least count of the group with the words that hold each: a walk
    // that needs no more of a group than those reads no word of it. Where the last word at either
    // end leaves it, the range is found again from the group when next asked for.
    struct GroupCounts {
        std::int32_t most = 0;
        std::int32_t at_most = 0;
        std::int32_t least = 0;
        std::int32_t at_least = 0;
        bool known = true;

        void Add(std::int32_t count);
        void Remove(std::int32_t count);
    };
    std::vector<GroupCounts> group_counts_;
    NodesByLength changed_nodes_;
    NodesByLength taken_changed_;         // as the last TakeChangedNodes answered
    NodesByLength moved_nodes_;           // as the next TakeMovedNodes answers
    std::vector<std::int32_t> pending_;   // slots waiting to be extended
    std::vector<std::int32_t> run_;       // room for AttachSlots: the slots of one run
    std::vector<std::int32_t> run_path_;  // room for AttachRun: the nodes of a, aa, aaa, ...
    // Per symbol a: the nodes of a, aa, aaa, ... by length, -1 where there is none. A slot in a
    // run of m symbols lies on m of them, so walking them slot by slot costs m * m / 2 steps; runs
    // are attached as one and cut by jumps instead.
    std::unordered_map<std::int32_t, std::vector<std::int32_t>> chains_;
    // Per symbol a: by how many slots the counts of a^j drop, as differences between neighbouring
    // lengths, and the slots cut, until SettleChainCuts takes them off.
    std::unordered_map<std::int32_t, std::vector<std::int32_t>> chain_cuts_;
    std::vector<std::int32_t> chain_cut_slots_;
    // Per symbol a: the counts of a, aa, aaa, ... up to the first that occurs no more, read once
    // between two replacements; empty where the trie stops short of it.
    std::unordered_map<std::int32_t, std::vector<std::int32_t>> run_counts_;
};

}  // namespace tessarin
