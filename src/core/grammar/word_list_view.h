#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "common/huge_pages.h"
#include "grammar/grammar.h"
#include "grammar/key_index.h"
#include "grammar/long_word_bound.h"
#include "grammar/long_words.h"
#include "grammar/node_set.h"
#include "grammar/pair_ranking.h"
#include "grammar/repeat_trie.h"

namespace tessarin {

// The grammar's repeated words as the compression looks at them: the list that a fresh search of
// all rules up to a length gives, with the occurrences that overlap an earlier one dropped and
// each length group reordered by the counts left. Groups are ordered by count, ties broken by the
// order of the parent group (by symbols for pairs) and then by first occurrence. The list is
// not built: each place is worked out from the trie when asked for.
class WordListView {
  public:
    // What the compression looks at for the word at one list position.
    struct Entry {
        int length = 0;
        int count = 0;  // occurrences kept
        int rank = 0;   // place in its group as the search ordered it, 1 = most frequent; 0 if not asked for
    };
    enum class Rank { kWanted, kUnneeded };

    // The words of up to `max_depth` symbols of the rules; `poll`, `longest_overlapping`,
    // `suffixes` and `overlapping` as the trie's.
    WordListView(std::span<const Rule> rules, int max_depth, RepeatTrie::Poll poll = {},
                 int longest_overlapping = std::numeric_limits<int>::max(),
                 std::optional<SuffixArray> suffixes = std::nullopt, const OverlappingWords& overlapping = {});

    int max_depth() const { return trie_->max_depth(); }
    int longest_overlapping() const { return trie_->longest_overlapping(); }
    // The poll answered true during the build or a rule's replacements: the view must be dropped.
    bool stopped() const { return cancelled_ || trie_->stopped(); }
    std::vector<Rule> Rules() const { return trie_->text().ToRules(); }

    // The list as a fresh search up to `max_length` (at most the depth) leaves it.
    void Search(int max_length);
    // Carries the list on by one length, extending the words of the last group in list order
    // from their kept occurrences. False when none repeats.
    bool ExtendLastGroup();

    // List positions run from 1 to WordCount().
    int WordCount() const;
    // The length of the last word; 0 for an empty list.
    int LastLength() const;
    // The rank costs a pass over a group that the dropped overlaps reordered; a caller that only
    // looks at the length and count leaves it out.
    Entry At(int position, Rank rank = Rank::kWanted);

    // Makes the word at `position` (2 or more symbols) the rule with `code`: its kept
    // occurrences are replaced and the rule appended. Answers the change of K_G.
    std::int64_t AddRule(int position, std::int32_t code);

    // The repeated words longer than the view's depth, as the rules stand until the next rule;
    // nothing once the meter answers that the user cancelled.
    std::optional<LongWords> ReadLongWords(ProgressMeter& meter);
    // Makes the long word the rule with `code`, as AddRule does.
    std::int64_t AddRule(const LongWords::Word& word, std::int32_t code);
    // A trie cut at the longest word that overlaps itself is cut again, when it is rebuilt, where
    // that word ends in the rules as they then stand. After the rule whose replacement rebuilt it,
    // this answers once the bound on the words longer than the new cut.
    std::optional<LongWordBound> TakeRebuiltBound() { return std::exchange(rebuilt_bound_, std::nullopt); }

  private:
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
        std::int32_t rank = 0;  // 0 until asked for
    };
    // A word of a trie group with what the orders compare first, copied out of the trie because
    // a pass compares the words of a group many times over and the nodes lie far apart in
    // memory. Kept from pass to pass, and read again where the trie reports a count changed.
    struct Keyed {
        static constexpr int kLevels = 3;
        // The count, then the counts of the prefixes one, two and three symbols shorter, 32 bits
        // each: two comparisons of 64-bit halves follow the search order over all four. The
        // prefixes' are 0, and their nodes -1, in a copy that holds no prefixes: the comparisons
        // then walk the trie from the words themselves.
        std::array<std::uint64_t, 2> counts{};
        std::int32_t kept = 0;  // -1 until needed, where working it out lists the occurrences
        std::array<std::int32_t, kLevels> prefixes{-1, -1, -1};  // their nodes, as far as counts are copied
        std::int32_t node = -1;                                  // -1: to be read again
        // The parent of the last prefix copied, where a walk goes on from, when that prefix has
        // more than 2 symbols; -1 otherwise. A word's prefixes keep their nodes while it lives, so
        // this needs no reading again, and spares a walk a trip to memory for the prefix itself.
        std::int32_t beyond = -1;

        std::int32_t Count() const { return static_cast<std::int32_t>(counts[0] >> 32); }
    };
    using KeyedWords = HugePageVector<Keyed>;
    // What the search rank of one word found about the words tied with it on every copied count,
    // kept from pass to pass where the first prefixes past the copied ones told the two apart by
    // their counts: Longest First asks a moved word's rank among hundreds of such words pass after
    // pass, while a pass changes the counts of a few of those prefixes. A place read again forgets
    // what was found, and so do the places whose prefix there is listed as changed.
    struct RankMemo {
        std::int32_t node = -1;  // the word ranked; -1: nothing kept
        std::array<std::uint64_t, 2> counts{};
        std::int32_t beyond_count = 0;
        std::uint32_t epoch = 0;
        struct Known {
            std::uint32_t stamp = 0;  // epoch << 1, 1 added where the word comes before; another epoch: not known
            std::int32_t beyond = -1;
        };
        std::vector<Known> known;                   // per place
        std::vector<std::int32_t> changed_beyonds;  // nodes of the prefixes' length whose counts changed since
    };
    // A group's copy, kept up to date place by place: a pass changes a few words of a group of
    // thousands, and reading it all again before each pick cost as much as the pick.
    struct KeyedCopy {
        KeyedWords words;
        // Whether the words' prefixes are copied too. The walk of passes that change counts all
        // over reads most groups for their kept counts alone, and each prefix is one more trip to
        // memory; only a pick among tied words or a search rank needs them, and then reads them all.
        bool with_prefixes = true;
        // Per place, the word's ListKey and SearchKey, which a pick selects among before any comparison.
        KeyIndex list_keys;
        KeyIndex search_keys;
        std::vector<std::int32_t> stale;   // places whose word moved or whose counts changed
        std::vector<std::int32_t> unkept;  // places read again whose kept count is still to work out
        // The places whose kept count is below their count, in no order, and per place its index
        // there or -1: the group's order differs from the search's at these alone.
        std::vector<std::uint32_t> moved;
        std::vector<std::int32_t> moved_at;
        RankMemo rank_memo;

        // Empty, as a copy not yet read, with the room kept.
        void Clear() {
            words.clear();
            with_prefixes = true;
            list_keys.Clear();
            search_keys.Clear();
            stale.clear();
            unkept.clear();
            moved.clear();
            moved_at.clear();
            rank_memo = RankMemo{};
        }
    };
    // The words of a group that dropping the overlaps moved, kept up to date from the words whose
    // counts change, without a copy of the group: with the trie's greatest and least counts they
    // tell the first and last places of most groups, which is all a walk asks of most groups.
    struct MovedWords {
        bool known = false;  // false: to be found from the whole group
        // More than a walk compares; the nodes are then not listed.
        bool too_many = false;
        std::vector<std::int32_t> nodes;

        void Take(std::vector<std::int32_t>&& moved) {
            too_many = moved.size() > kMostMoved;
            nodes = too_many ? std::vector<std::int32_t>{} : std::move(moved);
        }
    };
    // A word of the group that dropping the overlaps moved: its kept count is below its count.
    struct Moved {
        std::uint32_t index = 0;  // its place in the copy
        std::int32_t kept = 0;
        std::int32_t count = 0;
        std::int32_t search_rank = 0;      // 0 until worked out
        std::int32_t unmoved_before = -1;  // the words not moved before it in the search; -1 until worked out
    };
    struct GroupOrder {
        std::int64_t generation = -1;
        // The moved words, listed once per pass; too many of them leave the places to be picked out.
        bool moved_listed = false;
        bool too_many_moved = false;
        std::vector<Moved> moved;
        std::vector<Placed> selected;                             // places answered one by one
        std::vector<std::pair<std::int32_t, std::int32_t>> list;  // (node, rank) in list order, once sorted
    };

    struct Place {
        int length = 0;
        int offset = 0;      // within its group
        int extension = -1;  // index into extensions_, -1 for a group of the trie
    };

    // Where a group starts in the list: groups count from 0 for the single symbols, the
    // trie's by length and then the extensions.
    struct GroupCursor {
        int group = 0;
        int first_position = 1;
    };

    int TopTrieLength() const;
    int GroupSizeAt(int group) const;
    Place Locate(int position);
    bool SearchBefore(std::int32_t a, std::int32_t b);
    bool SearchBefore(const Keyed& a, const Keyed& b);
    // Past the copied counts, two words part where the first of their stretches of prefixes with
    // the word's count ends: the word whose stretch ends nearer to it comes first, as its prefix
    // there occurs more often; where both end at one length, the greater count of the prefixes
    // just above decides. TopKey numbers that so, the deeper top and then that count greater; it
    // ties the words whose stretches reach 2 symbols, which are ordered by symbols there.
    std::uint64_t TopKey(std::int32_t node);
    // The top key of each word of tied_, with its place, in tied_tops_.
    void ReadTiedTops(const KeyedWords& words);
    // SearchBefore, the top keys compared once the copied counts tie.
    bool SearchBefore(const Keyed& a, std::uint64_t top_a, const Keyed& b, std::uint64_t top_b);
    bool ListBefore(const Keyed& a, const Keyed& b);
    GroupOrder& Order(int length);
    // Whether the node holds a word of the group of `length` symbols that dropping the overlaps moved.
    bool IsMoved(std::int32_t node, int length);
    // The group's moved words, found from the whole group where they are not known.
    MovedWords& MovedOf(int length);
    // Whether dropping the overlaps reordered the group.
    bool Reordered(int length);
    // Takes the changes of the last rule into the lists of moved words.
    void UpdateMoved(const RepeatTrie::NodesByLength& changed);
    // The entry at the first or last place of a trie group from its greatest and least counts and
    // its moved words alone; nothing where the moved words lie there.
    std::optional<Entry> EntryAtEnds(int length, int offset, Rank rank);
    void SortGroup(int length, GroupOrder& order);
    Keyed ReadKeyed(std::int32_t node, bool with_prefixes);
    // Copies the counts of the word's nearest prefixes into it, with their nodes.
    void ReadPrefixes(Keyed& word);
    bool Copied(int length) const {
        return static_cast<std::size_t>(length) < keyed_.size() && !keyed_[length].words.empty();
    }
    // Lets go of the group's copy and of its order, which are read again when next needed.
    void LetGo(int length);
    // Notes a place of a copied group to be read again.
    void MarkPlaceStale(int length, std::int32_t index);
    // The group's words with their counts, in the trie's order of the group.
    KeyedWords& KeyedGroup(int length);
    // The kept count of the word at a place of the copy, worked out if it is not yet.
    std::int32_t KeptAt(KeyedCopy& copy, std::size_t index);
    // Lists the place among the moved ones or takes it off, as its word now stands.
    static void FileMoved(KeyedCopy& copy, std::size_t index);
    enum class Prefixes { kUnneeded, kWanted };
    KeyedWords& KeptGroup(int length, Prefixes prefixes = Prefixes::kUnneeded);
    // Replaces the occurrences of a word of `length` symbols at `starts` by `code`; answers the change of K_G.
    std::int64_t Replace(const std::vector<std::int32_t>& starts, int length, std::int32_t code);
    // Takes in the words whose counts the last build or rule changed.
    void NoteChanges();
    // Marks the copies of the word and of the longer words that copy its count to be read again.
    void MarkStale(std::int32_t node, int levels_below);
    Placed Select(int length, int offset);
    // The place of the k-th of the places in tied_ in list order; tied_ may be reordered.
    std::uint32_t NthTiedInList(const KeyedWords& words, std::size_t k);
    // Leaves in tied_ only the places that tie with the k-th on the copied counts; answers its
    // index among them. The first and the last are left to one pass over all unless `at_ends`.
    std::size_t NarrowByThirdPrefix(const KeyedWords& words, std::size_t k, bool at_ends);
    // The entry at a place of a trie group, from the kept counts and the moved words alone;
    // nothing where the group has too many moved words or the keys do not tell the counts.
    std::optional<Entry> EntryFromCounts(int length, int offset, Rank rank);
    // The moved word's rank in the search order, worked out once per pass.
    std::int32_t MovedRank(int length, Moved& word);
    // The words before it in the search, less the moved ones; worked out once per pass.
    std::int32_t UnmovedBefore(int length, GroupOrder& order, Moved& word);
    // The place's rank in the search order.
    std::int32_t SearchRank(int length, const Placed& placed);
    // The words tied with the one at `chosen` in tied_ that come before it, as far as the memo
    // knows and compared where not.
    std::int32_t TiedBeforeRemembered(KeyedCopy& copy, std::size_t chosen);
    // Counts walks of SearchBefore, the longer ones weighing less as they age.
    void CountWalks(std::uint64_t walks);
    // Numbers that order the words as the list and the search do, as far as the copied counts go;
    // a greater number comes first.
    static std::uint64_t ListKey(const Keyed& word);
    static std::uint64_t SearchKey(const Keyed& word);
    // The rank is 0 unless wanted.
    std::pair<std::int32_t, std::int32_t> NodeAt(int length, int offset, Rank rank);
    // The parents of the next extension in list order, each with its kept occurrences.
    void LastGroupOccurrences(int length, std::vector<std::vector<std::int32_t>>& starts,
                              std::vector<std::vector<std::int32_t>>& ends);

    // A build lists no changes: its pairs are all new to the ranking.
    void RankPairsOfBuild();
    // Builds the trie afresh from its text, which a replacement changed alone, and forgets what was
    // worked out from the old one.
    void Rebuild();
    void Recycle(KeyedCopy&& copy);
    // Whether the trie is cut at the longest word that overlaps itself, above the least cut: a
    // rebuild may then cut it shallower. A trie of every length is never cut, though the largest
    // number stands both for every length and for an overlap not known.
    bool CutAtOverlaps() const {
        return max_depth() == longest_overlapping() && max_depth() != std::numeric_limits<int>::max() &&
               max_depth() > kLeastShortLength;
    }
    // Whether a rebuild would pay for itself by cutting the trie shallower.
    bool WorthCuttingAgain() const;

    RepeatTrie::Poll poll_;
    bool cancelled_ = false;  // the user cancelled while the bound of a rebuild was read
    // The symbols of the rules now and at the last build.
    std::int64_t symbols_ = 0;
    std::int64_t built_symbols_ = 0;
    std::optional<LongWordBound> rebuilt_bound_;
    // Held apart so that a rebuild lets the old trie go before it builds the new one.
    std::optional<RepeatTrie> trie_;
    PairRanking pairs_;
    int view_length_ = 0;
    std::vector<Extension> extensions_;
    GroupCursor cursor_;           // the group located last, until the groups change
    std::int64_t generation_ = 0;  // grows with every rule, so cached orders expire
    std::vector<GroupOrder> orders_;
    std::vector<KeyedCopy> keyed_;  // per length, once the group is asked about
    // The room of the largest copy let go while streaming, for the next copy read whole: a walk
    // after a build reads the groups one after another, and fresh room for each would be mapped
    // and cleared anew.
    KeyedCopy spare_;
    std::vector<MovedWords> moved_;           // per length
    std::vector<std::uint32_t> tied_;         // room for Select and SearchRank: places of tied words
    std::vector<std::uint64_t> select_room_;  // room for Select to select among keys
    // Whether the words tied in tied_ are compared by their tops, read once for a selection or a
    // search rank, rather than by walks that reach them in every comparison: where many words tie
    // and the walks have run long. Under Longest First on a genome a walk takes 1.3 steps on
    // average and reading the tops costs more; under Maximum Gain, 9 steps and more.
    bool UseTops() const { return tied_.size() >= kLeastTiedForTops && walk_steps_ > kStepsForTops * walks_; }
    static constexpr std::size_t kLeastTiedForTops = 32;
    // A tandem repeat moves a word per symbol of its period in each group it reaches; a group that
    // dropping the overlaps reorders all over is left to the picks.
    static constexpr std::size_t kMostMoved = 1024;
    static constexpr std::uint64_t kStepsForTops = 4;
    // The walks of SearchBefore lately, and the steps they took.
    std::uint64_t walks_ = 0;
    std::uint64_t walk_steps_ = 0;
    std::vector<std::pair<std::uint64_t, std::uint32_t>> tied_tops_;  // room for NthTiedInList: top keys and places
    NodeSet changed_beyonds_;                                         // room for TiedBeforeRemembered
    // Room for NarrowByThirdPrefix: third prefixes' counts and places.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> tied_thirds_;
    // Where the passes change counts all over, as Maximum Gain's first passes do, every copy is read
    // afresh at the next pass anyway; the copies of all groups together then take more memory than
    // the trie's nodes. So from the build on, and after each pass that changed the counts of more than
    // a quarter of the trie's words, a group's copy is let go as soon as another group is read.
    bool streaming_ = true;
    int streamed_length_ = 0;  // the group read last while streaming
};

}  // namespace tessarin
