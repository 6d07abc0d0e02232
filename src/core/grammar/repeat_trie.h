#pragma once

#include <cstdint>
#include <tuple>
#include <utility>
#include <vector>

#include "grammar/child_table.h"
#include "grammar/grammar.h"
#include "grammar/linked_rules.h"
#include "grammar/ranked_set.h"

namespace tessarin {

// Every word of the grammar's rules, of up to `max_depth` symbols, in a trie that is kept up to
// date as rules are added, so that a pass costs what its replacements touch instead of a whole
// new search. Each slot of the rules lies on the path of the words that start there, down to the
// shortest one that occurs only once; a node counts the slots on its path, which is its word's
// number of occurrences (FindWords' count). From it the class answers what FindWords and
// PruneOverlaps would make of the grammar: each length group ordered by count, ties broken by the
// order of the parent group and then by first occurrence, and reordered by the counts of the
// occurrences that do not overlap.
class RepeatTrie {
  public:
    // What the compression looks at for the word at one list position.
    struct Entry {
        int length = 0;
        int count = 0;  // occurrences kept by PruneOverlaps
        int rank = 0;   // place in its group as the search ordered it, 1 = most frequent
    };

    RepeatTrie(const Grammar& grammar, int max_depth);

    int max_depth() const { return max_depth_; }

    // The list as a fresh search up to `max_length` (at most the depth) and pruning leave it.
    void Search(int max_length);
    // Carries the list on by one length, extending the words of the last group in list order
    // from their kept occurrences, then prunes the new group. False when none repeats.
    bool ExtendLastGroup();

    // List positions run from 1 to WordCount().
    int WordCount() const;
    // The length of the last word; 0 for an empty list.
    int LastLength() const;
    Entry At(int position);

    // Makes the word at `position` (2 or more symbols) the rule with `code`: its kept
    // occurrences are replaced and the rule appended. Answers the change of K_G.
    std::int64_t AddRule(int position, std::int32_t code);

    Grammar ToGrammar(int alphabet_size) const { return text_.ToGrammar(alphabet_size); }

  private:
    static constexpr std::int32_t kRoot = 0;
    static constexpr std::int32_t kUnknown = -1;
    static constexpr std::int32_t kNotRanked = -1;
    static constexpr std::int32_t kWaitingToBeRanked = -2;

    struct Node {
        std::int32_t parent = -1;
        std::int32_t symbol = 0;
        std::int32_t depth = 0;
        std::int32_t count = 0;  // slots whose path passes here
        std::int32_t first_child = -1;
        std::int32_t next_sibling = -1;
        std::int32_t prev_sibling = -1;
        std::int32_t first_slot = -1;   // slots whose path ends here
        std::int32_t group_index = -1;  // place in groups_[depth] while the word repeats
        std::int32_t first_occurrence = kUnknown;
        std::int32_t kept = kUnknown;            // count after pruning
        std::int8_t self_overlap = kUnknown;     // 1 when two occurrences can overlap
        std::int32_t search_entry = kNotRanked;  // in pairs_by_search_, for a pair that repeats
        std::int32_t list_entry = kNotRanked;    // in pairs_by_list_
    };

    // A length group found by carrying the list on, outside the trie.
    struct Extension {
        struct Word {
            std::int32_t begin = 0;
            std::int32_t count = 0;  // kept occurrences
        };
        int length = 0;
        std::vector<std::int32_t> starts;  // kept occurrences, word after word
        std::vector<std::int32_t> ends;    // the last slot of each
        std::vector<Word> words;           // in search order; rank = index + 1
        std::vector<std::int32_t> list_order;
    };

    // The order of a trie group in this pass, worked out when first needed.
    struct Placed {
        int offset = 0;
        std::int32_t node = -1;
        std::int32_t rank = 0;
    };
    struct GroupOrder {
        std::int64_t generation = -1;
        std::vector<Placed> selected;                             // places answered one by one
        std::vector<std::pair<std::int32_t, std::int32_t>> list;  // (node, rank) in list order, once sorted
    };

    // Building and keeping the paths.
    void Attach(std::int32_t slot);
    void Extend(std::int32_t slot);
    void Cut(std::int32_t slot, int depth);
    void Collapse(std::int32_t node);
    std::int32_t NewNode(std::int32_t parent, std::int32_t symbol);
    void DeleteNode(std::int32_t node);
    void JoinGroup(std::int32_t node);
    void LeaveGroup(std::int32_t node);
    void AddSlot(std::int32_t node, std::int32_t slot);
    void RemoveSlot(std::int32_t node, std::int32_t slot);
    void Replace(const std::vector<std::int32_t>& starts, int length, std::int32_t code);

    // Questions about one word.
    std::int32_t FirstOccurrence(std::int32_t node);
    bool SelfOverlaps(std::int32_t node);
    std::int32_t Kept(std::int32_t node);
    void KeptOccurrences(std::int32_t node, std::vector<std::int32_t>& starts, std::vector<std::int32_t>& ends);
    bool SearchBefore(std::int32_t a, std::int32_t b);
    bool ListBefore(std::int32_t a, std::int32_t b);

    // The pairs ranked.
    void PairChanged(std::int32_t node);
    void RankChangedPairs();

    // The list.
    struct Place {
        int length = 0;
        int offset = 0;      // within its group
        int extension = -1;  // index into extensions_, -1 for a group of the trie
    };
    int GroupSize(int length) const;
    Place Locate(int position) const;
    GroupOrder& Order(int length);
    std::pair<std::int32_t, std::int32_t> NodeAt(int length, int offset);
    Placed Select(int length, int offset);
    void SortGroup(int length, GroupOrder& order);
    void PruneExtension(Extension& group);

    LinkedRules text_;
    int max_depth_;
    std::vector<Node> nodes_;
    std::vector<std::int32_t> free_nodes_;
    ChildTable children_;
    std::vector<std::int32_t> path_end_;  // per slot: the node where its path ends, -1 for a removed slot
    std::vector<std::int32_t> next_at_node_;
    std::vector<std::int32_t> prev_at_node_;
    std::vector<std::vector<std::int32_t>> groups_;  // per length: the nodes of the words that repeat

    // The pairs that repeat in search order (-count, first, second) and in list order (-kept,
    // -count, first, second), kept up to date, so that the pair search of a pass costs a
    // logarithm of their number rather than a scan of them all, as in Re-Pair's priority queue.
    RankedSet<std::tuple<std::int32_t, std::int32_t, std::int32_t>> pairs_by_search_;
    RankedSet<std::tuple<std::int32_t, std::int32_t, std::int32_t, std::int32_t>> pairs_by_list_;
    std::vector<std::int32_t> changed_pairs_;

    int view_length_ = 0;
    std::vector<Extension> extensions_;
    std::int64_t generation_ = 0;  // grows with every rule, so cached orders expire
    std::vector<GroupOrder> orders_;

    std::vector<std::int32_t> pending_;           // slots waiting to be extended
    std::vector<std::int32_t> scratch_;           // the nodes of a subtree still to visit
    std::vector<std::int32_t> selection_;         // a group being partly ordered
    std::vector<std::int32_t> selection_word_;    // a word's symbols and
    std::vector<std::int32_t> selection_border_;  // its prefix function
    // Splitting occurrences by the symbol after them.
    std::vector<std::int32_t> seen_at_stamp_;  // per symbol
    std::vector<std::int32_t> child_of_symbol_;
    std::vector<std::int32_t> child_counts_;
    std::int32_t stamp_ = 0;
};

}  // namespace tessarin
