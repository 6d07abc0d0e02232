#include "grammar/word_list_view.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string>
#include <utility>

#include "grammar/joined_rules.h"
#include "grammar/overlaps.h"

namespace tessarin {
namespace {

// Four counts in 16 bits each. A count too large for its bits takes the greatest value and
// leaves those after it 0, so that the number never orders two words against the counts, only
// ties some that the counts tell apart.
std::uint64_t PackCounts(const std::array<std::uint64_t, 4>& counts) {
    constexpr int kBits = 16;
    constexpr std::uint64_t kMost = (std::uint64_t{1} << kBits) - 1;
    std::uint64_t key = 0;
    bool saturated = false;
    for (const std::uint64_t count : counts) {
        key = key << kBits | (saturated ? 0 : std::min(count, kMost));
        saturated = saturated || count >= kMost;
    }
    return key;
}

// Moves the k-th of the places in the order `before` to index k of `places`. A pick asks for the
// first or the last of thousands of tied words most of the time: one pass that compares each with
// the best so far, whose nodes stay in the cache, walks the trie a third as often as a selection.
template <typename Place, typename Before>
void PlaceNth(std::vector<Place>& places, std::size_t k, Before before) {
    if (k == 0) {
        std::iter_swap(places.begin(), std::min_element(places.begin(), places.end(), before));
    } else if (k + 1 == places.size()) {
        std::iter_swap(places.end() - 1, std::max_element(places.begin(), places.end(), before));
    } else {
        std::nth_element(places.begin(), places.begin() + static_cast<std::ptrdiff_t>(k), places.end(), before);
    }
}

}  // namespace

WordListView::WordListView(std::span<const Rule> rules, int max_depth, RepeatTrie::Poll poll, int longest_overlapping,
                           std::optional<SuffixArray> suffixes, const OverlappingWords& overlapping)
    : poll_(std::move(poll)),
      trie_(std::in_place, rules, max_depth, poll_, longest_overlapping, std::move(suffixes), overlapping) {
    symbols_ = built_symbols_ = trie_->text().SlotCount();
    RankPairsOfBuild();
}

void WordListView::RankPairsOfBuild() {
    pairs_ = PairRanking{};
    if (trie_->GroupSize(2) > 0) pairs_.Note(trie_->Group(2));
}

// A trie cut at the longest word that overlaps itself is cut again where that word now ends: the
// passes shorten it, and every path through a long repeat runs down to the cut (on E. coli 536,
// 158 symbols at first and 75 after thirty pairs under Maximum Gain).
void WordListView::Rebuild() {
    const std::vector<Rule> rules = Rules();
    int depth = max_depth();
    int overlapping = longest_overlapping();
    const bool cut_again = CutAtOverlaps();
    RepeatTrie::Tables tables = trie_->LetGoOfTables();
    trie_.reset();
    // The copies go before the build, which needs the room more than the walk after it.
    keyed_.clear();
    spare_ = KeyedCopy{};
    moved_.clear();
    orders_.clear();
    std::optional<SuffixArray> suffixes;
    OverlappingWords overlaps;
    if (cut_again) {
        const JoinedRules joined = JoinRules(rules);
        const ProgressFn poll = [this](const std::string&, float) { return poll_ && poll_(0); };
        ProgressMeter meter(poll, "", SuffixArrayUnits(joined.symbols.size()) + static_cast<double>(joined.length));
        rebuilt_bound_ = BoundLongWords(joined.symbols, joined.alphabet_size, kLeastShortLength, kMostShortLength,
                                        meter, cancelled_, suffixes, overlaps);
        if (rebuilt_bound_) depth = overlapping = rebuilt_bound_->short_length;
    }
    trie_.emplace(rules, depth, poll_, overlapping, std::move(suffixes), overlaps, std::move(tables));
    symbols_ = built_symbols_ = trie_->text().SlotCount();
    streaming_ = true;
    streamed_length_ = 0;
    RankPairsOfBuild();
}

int WordListView::TopTrieLength() const {
    return std::min(view_length_, trie_->GroupCount());
}

void WordListView::Search(int max_length) {
    view_length_ = std::min(max_length, trie_->max_depth());
    extensions_.clear();
    cursor_ = GroupCursor{};
}

int WordListView::WordCount() const {
    int count = trie_->GroupSize(1);
    for (int length = 2; length <= TopTrieLength(); ++length)
        count += trie_->GroupSize(length);
    for (const Extension& group : extensions_)
        count += static_cast<int>(group.words.size());
    return count;
}

int WordListView::LastLength() const {
    if (!extensions_.empty()) return extensions_.back().length;
    for (int length = TopTrieLength(); length >= 1; --length) {
        if (trie_->GroupSize(length) > 0) return length;
    }
    return 0;
}

int WordListView::GroupSizeAt(int group) const {
    const int top = TopTrieLength();
    return group < top ? trie_->GroupSize(group + 1)
                       : static_cast<int>(extensions_[static_cast<std::size_t>(group - top)].words.size());
}

// Moves from the group located last, as a walk asks about the groups one after another; counting
// from the front each time would cost a step per length, thousands where a long repeat or run is.
WordListView::Place WordListView::Locate(int position) {
    const int groups = TopTrieLength() + static_cast<int>(extensions_.size());
    GroupCursor& at = cursor_;
    while (at.group > 0 && position < at.first_position) {
        --at.group;
        at.first_position -= GroupSizeAt(at.group);
    }
    while (at.group < groups && position >= at.first_position + GroupSizeAt(at.group)) {
        at.first_position += GroupSizeAt(at.group);
        ++at.group;
    }
    if (at.group == groups) return Place{0, 0, -1};
    const int offset = position - at.first_position;
    const int top = TopTrieLength();
    if (at.group < top) return Place{at.group + 1, offset, -1};
    const int extension = at.group - top;
    return Place{extensions_[static_cast<std::size_t>(extension)].length, offset, extension};
}

// The order of the search within a length: falling count; ties by the order of the parents in
// the group before (by symbols for pairs) and, between children of one parent, by first occurrence.
bool WordListView::SearchBefore(std::int32_t a, std::int32_t b) {
    // Most ties are told apart within a few symbols, where a step reads one node and a jump three.
    constexpr int kStepsBeforeJumps = 8;
    CountWalks(1);
    for (int steps = 0;; ++steps, ++walk_steps_) {
        if (trie_->Count(a) != trie_->Count(b)) return trie_->Count(a) > trie_->Count(b);
        if (trie_->Depth(a) <= 2) {
            const std::int32_t a_first = trie_->Depth(a) == 2 ? trie_->Symbol(trie_->Parent(a)) : 0;
            const std::int32_t b_first = trie_->Depth(b) == 2 ? trie_->Symbol(trie_->Parent(b)) : 0;
            return a_first != b_first ? a_first < b_first : trie_->Symbol(a) < trie_->Symbol(b);
        }
        if (trie_->Parent(a) == trie_->Parent(b)) return trie_->FirstOccurrence(a) < trie_->FirstOccurrence(b);
        // Two words never meet along prefixes that all occur c times, since a word two of whose
        // continuations occur c times each occurs 2c times or more; a walk that goes on for long
        // passes such stretches in one step, thousands of symbols in a long repeat. Where one
        // stretch ends first, that word's prefix there has the greater count.
        if (steps >= kStepsBeforeJumps) {
            const std::int32_t top_a = trie_->StretchTop(a);
            const std::int32_t top_b = trie_->StretchTop(b);
            const int depth_a = trie_->Depth(top_a);
            const int depth_b = trie_->Depth(top_b);
            if (depth_a != depth_b) return depth_a > depth_b;
            if (depth_a < trie_->Depth(a)) {
                a = top_a;
                b = top_b;
                continue;
            }
        }
        a = trie_->Parent(a);
        b = trie_->Parent(b);
    }
}

void WordListView::CountWalks(std::uint64_t walks) {
    constexpr std::uint64_t kWalksRemembered = 1 << 20;
    walks_ += walks;
    while (walks_ > kWalksRemembered) {
        walks_ /= 2;
        walk_steps_ /= 2;
    }
}

WordListView::GroupOrder& WordListView::Order(int length) {
    if (orders_.size() <= static_cast<std::size_t>(length)) orders_.resize(static_cast<std::size_t>(length) + 1);
    GroupOrder& order = orders_[length];
    if (order.generation != generation_) {
        order.generation = generation_;
        order.moved_listed = false;
        order.selected.clear();
        order.list.clear();
    }
    return order;
}

bool WordListView::IsMoved(std::int32_t node, int length) {
    return trie_->Alive(node) && trie_->Depth(node) == length && trie_->GroupIndex(node) >= 0 &&
           trie_->Kept(node) < trie_->Count(node);
}

WordListView::MovedWords& WordListView::MovedOf(int length) {
    if (moved_.size() <= static_cast<std::size_t>(length)) moved_.resize(static_cast<std::size_t>(length) + 1);
    MovedWords& moved = moved_[length];
    if (moved.known) return moved;
    moved = MovedWords{true, false, {}};
    // Words that never overlap themselves keep every occurrence: a walk over a genome's thousands
    // of lengths of long repeats reads none of their words.
    if (length > trie_->longest_overlapping()) return moved;
    const std::vector<std::int32_t>& group = trie_->Group(length);
    std::vector<std::int32_t> nodes;
    constexpr std::size_t kPrefetchAhead = 16;
    for (std::size_t index = 0; index < group.size(); ++index) {
        if (index + kPrefetchAhead < group.size()) trie_->Prefetch(group[index + kPrefetchAhead]);
        if (IsMoved(group[index], length)) nodes.push_back(group[index]);
    }
    moved.Take(std::move(nodes));
    return moved;
}

bool WordListView::Reordered(int length) {
    const MovedWords& moved = MovedOf(length);
    return moved.too_many || !moved.nodes.empty();
}

// A word's kept count changes only with its count: the occurrences that overlap lie inside a
// stretch with the word's period, and whatever cuts that stretch cuts an occurrence of the word.
void WordListView::UpdateMoved(const RepeatTrie::NodesByLength& changed) {
    for (std::size_t length = 0; length < std::min(moved_.size(), changed.size()); ++length) {
        MovedWords& moved = moved_[length];
        if (!moved.known || changed[length].empty()) continue;
        // A group with more moved words than are listed is read again as a whole when asked about.
        if (moved.too_many) {
            moved = MovedWords{};
            continue;
        }
        // A node may be listed twice, having gone and been taken for another word of the length.
        std::vector<std::int32_t> candidates;
        auto take_moved = [&](const std::vector<std::int32_t>& nodes) {
            for (const std::int32_t node : nodes) {
                if (IsMoved(node, static_cast<int>(length))) candidates.push_back(node);
            }
        };
        take_moved(moved.nodes);
        take_moved(changed[length]);
        std::sort(candidates.begin(), candidates.end());
        candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
        moved.Take(std::move(candidates));
    }
}

// The list orders a group by kept count, ties as the search does, which orders by count first. If
// no moved word keeps fewer than the group's least count, the last word of the list is the last
// of the search, of that count; if a word of the greatest count is not moved, the first place of
// the list keeps that many.
std::optional<WordListView::Entry> WordListView::EntryAtEnds(int length, int offset, Rank rank) {
    const MovedWords& moved = MovedOf(length);
    if (moved.too_many) return std::nullopt;
    const RepeatTrie::CountRange counts = trie_->GroupCountRange(length);
    const int last = trie_->GroupSize(length) - 1;
    if (offset == last) {
        for (const std::int32_t node : moved.nodes) {
            if (trie_->Kept(node) < counts.least) return std::nullopt;
        }
        return Entry{length, counts.least, last + 1};
    }
    if (offset != 0) return std::nullopt;
    std::int32_t unmoved_at_most = counts.at_most;
    for (const std::int32_t node : moved.nodes)
        unmoved_at_most -= trie_->Count(node) == counts.most ? 1 : 0;
    if (unmoved_at_most == 0) return std::nullopt;
    // The first word of the search keeps the greatest count where no word moved; otherwise its
    // rank is left to the search.
    if (moved.nodes.empty()) return Entry{length, counts.most, 1};
    if (rank == Rank::kUnneeded) return Entry{length, counts.most, 0};
    return std::nullopt;
}

void WordListView::SortGroup(int length, GroupOrder& order) {
    KeyedWords search = KeptGroup(length, Prefixes::kWanted);
    std::sort(search.begin(), search.end(), [this](const Keyed& a, const Keyed& b) { return SearchBefore(a, b); });
    std::vector<std::int32_t> by_kept(search.size());
    std::iota(by_kept.begin(), by_kept.end(), 0);
    std::stable_sort(by_kept.begin(), by_kept.end(),
                     [&search](std::int32_t a, std::int32_t b) { return search[a].kept > search[b].kept; });
    order.list.clear();
    for (const std::int32_t index : by_kept)
        order.list.emplace_back(search[index].node, index + 1);
}

// The search order on copied counts: the word's, then its nearest prefixes'. Only where all of
// those tie is the trie read, for first occurrences or the counts of farther prefixes.
bool WordListView::SearchBefore(const Keyed& a, const Keyed& b) {
    if (a.counts[0] != b.counts[0]) return a.counts[0] > b.counts[0];
    if (a.counts[1] != b.counts[1]) return a.counts[1] > b.counts[1];
    // The walk goes on from the farthest prefix copied, unless the words meet nearer: then the
    // first occurrences of the two words just short of the meeting decide.
    std::int32_t short_of_a = a.node;
    std::int32_t short_of_b = b.node;
    for (std::size_t level = 0; level < a.prefixes.size() && a.prefixes[level] >= 0; ++level) {
        if (a.prefixes[level] == b.prefixes[level])
            return trie_->FirstOccurrence(short_of_a) < trie_->FirstOccurrence(short_of_b);
        short_of_a = a.prefixes[level];
        short_of_b = b.prefixes[level];
    }
    if (a.beyond < 0) return SearchBefore(short_of_a, short_of_b);
    // The farthest prefixes copied tie on their counts and have more than 2 symbols: the walk's
    // first step is known.
    if (a.beyond == b.beyond) return trie_->FirstOccurrence(short_of_a) < trie_->FirstOccurrence(short_of_b);
    return SearchBefore(a.beyond, b.beyond);
}

// After the overlaps are dropped, a group is ordered by kept count and, among equal ones, as the
// search left it.
bool WordListView::ListBefore(const Keyed& a, const Keyed& b) {
    return a.kept != b.kept ? a.kept > b.kept : SearchBefore(a, b);
}

WordListView::Keyed WordListView::ReadKeyed(std::int32_t node, bool with_prefixes) {
    Keyed keyed;
    keyed.kept = trie_->KnownKept(node);
    keyed.node = node;
    keyed.counts[0] = std::uint64_t{static_cast<std::uint32_t>(trie_->Count(node))} << 32;
    if (with_prefixes) ReadPrefixes(keyed);
    return keyed;
}

// The prefixes' counts are copied only while a walk from the word would reach them, past words
// of 2 symbols (ordered by symbols) and children of one parent (whose prefixes' counts then all tie).
void WordListView::ReadPrefixes(Keyed& word) {
    static_assert(Keyed::kLevels == 3, "the word's count and three prefixes' fill two 64-bit halves");
    std::array<std::uint32_t, Keyed::kLevels> counts{};
    const int levels = std::clamp(trie_->Depth(word.node) - 2, 0, Keyed::kLevels);
    std::int32_t prefix = word.node;
    for (int level = 0; level < levels; ++level) {
        prefix = trie_->Parent(prefix);
        counts[static_cast<std::size_t>(level)] = static_cast<std::uint32_t>(trie_->Count(prefix));
        word.prefixes[static_cast<std::size_t>(level)] = prefix;
    }
    word.counts = {word.counts[0] >> 32 << 32 | counts[0], std::uint64_t{counts[1]} << 32 | counts[2]};
    if (levels == Keyed::kLevels && trie_->Depth(word.node) - levels > 2) word.beyond = trie_->Parent(prefix);
}

WordListView::KeyedWords& WordListView::KeyedGroup(int length) {
    if (streaming_ && length != streamed_length_) {
        LetGo(streamed_length_);
        streamed_length_ = length;
    }
    if (keyed_.size() <= static_cast<std::size_t>(length)) keyed_.resize(static_cast<std::size_t>(length) + 1);
    KeyedCopy& copy = keyed_[length];
    if (copy.words.capacity() == 0) std::swap(copy, spare_);
    const std::vector<std::int32_t>& group = trie_->Group(length);
    const std::size_t old_size = copy.words.size();
    // A group that dropping the overlaps reordered is ranked by the search order, which reads the
    // prefixes: they are read with the words rather than in a second pass over them.
    if (old_size == 0) copy.with_prefixes = !streaming_ || Reordered(length);
    auto read = [&](std::size_t index) {
        if (index < copy.rank_memo.known.size()) copy.rank_memo.known[index] = RankMemo::Known{};
        const Keyed& word = copy.words[index] = ReadKeyed(group[index], copy.with_prefixes);
        if (copy.with_prefixes) copy.search_keys.Set(index, SearchKey(word));
        if (word.kept < 0) {
            copy.unkept.push_back(static_cast<std::int32_t>(index));
        } else {
            copy.list_keys.Set(index, ListKey(word));
        }
        FileMoved(copy, index);
    };
    // Places past the group's end leave the moved list as words of unknown kept count.
    for (std::size_t index = group.size(); index < old_size; ++index) {
        copy.words[index].kept = -1;
        FileMoved(copy, index);
    }
    copy.words.resize(group.size());
    copy.moved_at.resize(group.size(), -1);
    copy.list_keys.Resize(group.size());
    copy.search_keys.Resize(group.size());
    if (old_size == 0) {
        copy.stale.clear();
        copy.unkept.clear();
    }
    // Words that joined the group, or moved within it as others left, are read again with the stale ones.
    constexpr std::size_t kPrefetchAhead = 16;
    for (std::size_t index = old_size; index < group.size(); ++index) {
        if (index + kPrefetchAhead < group.size()) trie_->Prefetch(group[index + kPrefetchAhead]);
        read(index);
    }
    const std::vector<std::int32_t>& stale = copy.stale;
    for (std::size_t at = 0; at < stale.size(); ++at) {
        if (at + kPrefetchAhead < stale.size()) {
            const auto ahead = static_cast<std::size_t>(stale[at + kPrefetchAhead]);
            if (ahead < group.size()) trie_->Prefetch(group[ahead]);
        }
        const auto index = static_cast<std::size_t>(stale[at]);
        if (index < old_size && index < group.size() && copy.words[index].node != group[index]) read(index);
    }
    copy.stale.clear();
    return copy.words;
}

std::int32_t WordListView::KeptAt(KeyedCopy& copy, std::size_t index) {
    Keyed& word = copy.words[index];
    if (word.kept < 0) {
        word.kept = trie_->Kept(word.node);
        copy.list_keys.Set(index, ListKey(word));
        FileMoved(copy, index);
    }
    return word.kept;
}

void WordListView::FileMoved(KeyedCopy& copy, std::size_t index) {
    const Keyed& word = copy.words[index];
    const bool moved = word.kept >= 0 && word.kept < word.Count();
    const std::int32_t at = copy.moved_at[index];
    if (moved == (at >= 0)) return;
    if (moved) {
        copy.moved_at[index] = static_cast<std::int32_t>(copy.moved.size());
        copy.moved.push_back(static_cast<std::uint32_t>(index));
        return;
    }
    const std::uint32_t last = copy.moved.back();
    copy.moved[static_cast<std::size_t>(at)] = last;
    copy.moved_at[last] = at;
    copy.moved.pop_back();
    copy.moved_at[index] = -1;
}

// The copy with every kept count worked out, which then stay worked out until a count changes.
WordListView::KeyedWords& WordListView::KeptGroup(int length, Prefixes prefixes) {
    KeyedWords& words = KeyedGroup(length);
    KeyedCopy& copy = keyed_[length];
    if (prefixes == Prefixes::kWanted && !copy.with_prefixes) {
        // Filed afresh: ranges drawn on the counts alone would hold the finer keys unevenly.
        copy.with_prefixes = true;
        copy.search_keys = KeyIndex{};
        copy.search_keys.Resize(words.size());
        copy.list_keys = KeyIndex{};
        copy.list_keys.Resize(words.size());
        for (std::size_t index = 0; index < words.size(); ++index) {
            ReadPrefixes(words[index]);
            copy.search_keys.Set(index, SearchKey(words[index]));
            if (words[index].kept >= 0) copy.list_keys.Set(index, ListKey(words[index]));
        }
    }
    constexpr std::size_t kPrefetchAhead = 16;
    const std::vector<std::int32_t>& unkept = copy.unkept;
    for (std::size_t at = 0; at < unkept.size(); ++at) {
        if (at + kPrefetchAhead < unkept.size()) {
            const auto ahead = static_cast<std::size_t>(unkept[at + kPrefetchAhead]);
            if (ahead < words.size()) trie_->Prefetch(words[ahead].node);
        }
        const auto index = static_cast<std::size_t>(unkept[at]);
        if (index < words.size()) KeptAt(copy, index);
    }
    copy.unkept.clear();
    return words;
}

void WordListView::NoteChanges() {
    const RepeatTrie::NodesByLength& changed = trie_->TakeChangedNodes();
    const RepeatTrie::NodesByLength moved = trie_->TakeMovedNodes();
    auto count_at = [](const RepeatTrie::NodesByLength& lists, int length) {
        return static_cast<std::size_t>(length) < lists.size() ? lists[length].size() : 0;
    };
    if (count_at(changed, 2) > 0) pairs_.Note(changed[2]);
    UpdateMoved(changed);
    // The trie lists no changes to words that never overlap themselves: their groups answer from
    // its count ranges, and the copy of one picked out is not kept.
    const int overlapping = std::min(trie_->GroupCount(), trie_->longest_overlapping());
    if (keyed_.size() > static_cast<std::size_t>(overlapping) + 1)
        keyed_.resize(static_cast<std::size_t>(overlapping) + 1);
    // A replacement that changes counts all over, as the first passes of Maximum Gain do with
    // words that occur tens of thousands of times, would mark most copied words one by one: a copy
    // that a quarter of its words changed in is cheaper read afresh.
    std::size_t changes = 0;
    std::size_t words = 0;
    for (int length = 3; length <= overlapping; ++length) {
        changes += count_at(changed, length);
        words += static_cast<std::size_t>(trie_->GroupSize(length));
        if (Copied(length) && 4 * count_at(changed, length) > keyed_[length].words.size()) LetGo(length);
    }
    streaming_ = 4 * changes > words;
    if (!streaming_) spare_ = KeyedCopy{};
    for (int length = Keyed::kLevels + 3; length <= overlapping; ++length) {
        if (!Copied(length) || keyed_[length].rank_memo.node < 0) continue;
        RankMemo& memo = keyed_[length].rank_memo;
        const int beyond_length = length - Keyed::kLevels - 1;
        if (count_at(changed, beyond_length) == 0) continue;
        const std::vector<std::int32_t>& nodes = changed[static_cast<std::size_t>(beyond_length)];
        memo.changed_beyonds.insert(memo.changed_beyonds.end(), nodes.begin(), nodes.end());
        // A memo that many changes reach is cheaper found afresh.
        if (memo.changed_beyonds.size() > memo.known.size()) memo.node = -1;
    }
    // Only the lists of copied groups, and of the prefixes whose counts they copy, are read: the
    // others would cost a trip to memory per node for nothing.
    for (std::size_t length = 0; length < moved.size(); ++length) {
        if (!Copied(static_cast<int>(length))) continue;
        for (const std::int32_t node : moved[length]) {
            if (trie_->Alive(node) && trie_->GroupIndex(node) >= 0)
                MarkPlaceStale(trie_->Depth(node), trie_->GroupIndex(node));
        }
    }
    for (std::size_t length = 0; length < changed.size(); ++length) {
        bool copied = false;
        for (int below = 0; below <= Keyed::kLevels; ++below)
            copied = copied || Copied(static_cast<int>(length) + below);
        if (!copied) continue;
        for (const std::int32_t node : changed[length]) {
            if (trie_->Alive(node)) MarkStale(node, 0);
        }
    }
}

void WordListView::Recycle(KeyedCopy&& copy) {
    if (copy.words.capacity() <= spare_.words.capacity()) return;
    spare_ = std::move(copy);
    spare_.Clear();
}

void WordListView::LetGo(int length) {
    if (static_cast<std::size_t>(length) < keyed_.size()) {
        if (streaming_) Recycle(std::move(keyed_[length]));
        keyed_[length] = KeyedCopy{};
    }
    if (static_cast<std::size_t>(length) < orders_.size()) orders_[length] = GroupOrder{};
}

void WordListView::MarkPlaceStale(int length, std::int32_t index) {
    if (!Copied(length)) return;
    KeyedCopy& copy = keyed_[length];
    // A copy left unread for many passes is dropped rather than let its list of stale places
    // grow; it is read whole when next needed.
    if (copy.stale.size() >= copy.words.size()) {
        LetGo(length);
        return;
    }
    copy.stale.push_back(index);
}

void WordListView::MarkStale(std::int32_t node, int levels_below) {
    const auto depth = static_cast<std::size_t>(trie_->Depth(node));
    const std::int32_t index = trie_->GroupIndex(node);
    // A word that joined its group since the copy was read has a place the copy holds another
    // word at, or none yet: the place is read again either way.
    if (depth < keyed_.size() && index >= 0) {
        KeyedWords& words = keyed_[depth].words;
        if (static_cast<std::size_t>(index) < words.size() && words[static_cast<std::size_t>(index)].node == node)
            words[static_cast<std::size_t>(index)].node = -1;
        MarkPlaceStale(static_cast<int>(depth), index);
    }
    // Only groups already copied need marking.
    constexpr auto kLevels = static_cast<std::size_t>(Keyed::kLevels);
    bool copied_below = false;
    for (std::size_t below = depth + 1; below <= depth + kLevels - static_cast<std::size_t>(levels_below); ++below)
        copied_below = copied_below || Copied(static_cast<int>(below));
    if (!copied_below) return;
    // A child that changed itself is marked with the levels below it on its own turn.
    for (std::int32_t child = trie_->FirstChild(node); child >= 0; child = trie_->NextSibling(child)) {
        if (!trie_->TakenAsChanged(child)) MarkStale(child, levels_below + 1);
    }
}

// One place of a group in list order found without sorting the group. The list order refines
// the order of ListKey: the place's word lies among the words that tie with it there, as a rule a
// small share of a large group, and only comparisons between those can walk the trie. Its rank is
// left to SearchRank.
WordListView::Placed WordListView::Select(int length, int offset) {
    const KeyedWords& words = KeptGroup(length, Prefixes::kWanted);
    const auto before = static_cast<std::ptrdiff_t>(
        keyed_[length].list_keys.TiedWithNth(static_cast<std::size_t>(offset), tied_, select_room_));
    return Placed{offset, words[NthTiedInList(words, static_cast<std::size_t>(offset - before))].node, 0};
}

std::uint32_t WordListView::NthTiedInList(const KeyedWords& words, std::size_t k) {
    // Where walks run long, each word's top, read once, settles most of the comparisons.
    if (!UseTops()) {
        k = NarrowByThirdPrefix(words, k, false);
        PlaceNth(tied_, k, [&](std::uint32_t a, std::uint32_t b) { return ListBefore(words[a], words[b]); });
        return tied_[k];
    }
    // A top costs trips to memory where the tally reads only the copy.
    k = NarrowByThirdPrefix(words, k, true);
    ReadTiedTops(words);
    PlaceNth(tied_tops_, k, [&](const auto& a, const auto& b) {
        const Keyed& x = words[a.second];
        const Keyed& y = words[b.second];
        return x.kept != y.kept ? x.kept > y.kept : SearchBefore(x, a.first, y, b.first);
    });
    return tied_tops_[k].second;
}

// The list's key leaves out the third prefix's count, which the search compares next: among the
// words tied on the key, a tally of those counts finds the words that tie with the k-th on it too,
// and the comparisons that walk the trie are left to them alone. About a fifth of the words tied
// in a pick under Longest First on a genome; a key that saturates leaves them all.
std::size_t WordListView::NarrowByThirdPrefix(const KeyedWords& words, std::size_t k, bool at_ends) {
    if (tied_.size() <= 2 || (!at_ends && (k == 0 || k + 1 == tied_.size()))) return k;
    // Such counts are small, and most tied words share a few: the k-th is found by counting them.
    constexpr std::uint32_t kCounted = 256;
    std::array<std::uint32_t, kCounted> counted{};
    std::size_t larger = 0;  // counts of kCounted and more
    const Keyed& some = words[tied_.front()];
    tied_thirds_.clear();
    for (const std::uint32_t place : tied_) {
        const Keyed& word = words[place];
        if (word.kept != some.kept || word.counts[0] != some.counts[0] ||
            (word.counts[1] >> 32) != (some.counts[1] >> 32))
            return k;
        const auto third = static_cast<std::uint32_t>(word.counts[1]);
        tied_thirds_.emplace_back(third, place);
        if (third < kCounted) {
            ++counted[third];
        } else {
            ++larger;
        }
    }
    std::uint32_t third = 0;
    if (k < larger) {
        const auto nth = tied_thirds_.begin() + static_cast<std::ptrdiff_t>(k);
        std::nth_element(tied_thirds_.begin(), nth, tied_thirds_.end(),
                         [](const auto& a, const auto& b) { return a.first > b.first; });
        third = nth->first;
    } else {
        std::size_t above = larger;
        third = kCounted - 1;
        while (above + counted[third] <= k)
            above += counted[third--];
    }
    std::size_t greater = 0;
    tied_.clear();
    for (const auto& [count, place] : tied_thirds_) {
        greater += count > third ? 1 : 0;
        if (count == third) tied_.push_back(place);
    }
    return k - greater;
}

std::uint64_t WordListView::TopKey(std::int32_t node) {
    const std::int32_t top = trie_->StretchTop(node);
    const int depth = trie_->Depth(top);
    const std::uint32_t above = depth > 2 ? static_cast<std::uint32_t>(trie_->Count(trie_->Parent(top))) : 0;
    return std::uint64_t{static_cast<std::uint32_t>(depth)} << 32 | above;
}

bool WordListView::SearchBefore(const Keyed& a, std::uint64_t top_a, const Keyed& b, std::uint64_t top_b) {
    if (a.counts != b.counts) return a.counts > b.counts;
    return top_a != top_b ? top_a > top_b : SearchBefore(a, b);
}

// Where dropping the overlaps changed no count the list order is the search order: the rank is
// the place. Otherwise the words before it in search order are counted, by SearchKey and, among
// the words tied with it there, by comparison.
std::int32_t WordListView::SearchRank(int length, const Placed& placed) {
    if (!Reordered(length)) return placed.offset + 1;
    const KeyedWords& words = KeptGroup(length, Prefixes::kWanted);
    KeyIndex& keys = keyed_[length].search_keys;
    const auto chosen = static_cast<std::size_t>(trie_->GroupIndex(placed.node));
    auto rank = static_cast<std::int32_t>(1 + keys.Tied(keys[chosen], tied_));
    if (!UseTops()) return rank + TiedBeforeRemembered(keyed_[length], chosen);
    const std::uint64_t chosen_top = TopKey(words[chosen].node);
    ReadTiedTops(words);
    for (const auto& [top, index] : tied_tops_) {
        if (index != chosen && SearchBefore(words[index], top, words[chosen], chosen_top)) ++rank;
    }
    return rank;
}

// A top is a few trips to memory, the word's copy, its node and its remembered top first: those
// of the words some places on are asked for ahead, so that the trips overlap.
void WordListView::ReadTiedTops(const KeyedWords& words) {
    constexpr std::size_t kAhead = 8;
    tied_tops_.clear();
    for (std::size_t at = 0; at < tied_.size(); ++at) {
        if (at + 2 * kAhead < tied_.size()) __builtin_prefetch(&words[tied_[at + 2 * kAhead]]);
        if (at + kAhead < tied_.size()) trie_->PrefetchStretchTop(words[tied_[at + kAhead]].node);
        tied_tops_.emplace_back(TopKey(words[tied_[at]].node), tied_[at]);
    }
}

std::int32_t WordListView::TiedBeforeRemembered(KeyedCopy& copy, std::size_t chosen) {
    const KeyedWords& words = copy.words;
    const Keyed& ranked = words[chosen];
    RankMemo& memo = copy.rank_memo;
    const std::int32_t beyond_count = ranked.beyond >= 0 ? trie_->Count(ranked.beyond) : -1;
    if (memo.node != ranked.node || memo.counts != ranked.counts || memo.beyond_count != beyond_count) {
        memo.node = ranked.node;
        memo.counts = ranked.counts;
        memo.beyond_count = beyond_count;
        memo.changed_beyonds.clear();
        // Past 2^31 epochs the stamps would wrap: start again from a clean slate.
        if (++memo.epoch >= (std::uint32_t{1} << 31)) {
            memo.epoch = 1;
            memo.known.assign(memo.known.size(), RankMemo::Known{});
        }
    }
    memo.known.resize(words.size());
    // The changes are taken in here and then forgotten: a place known is tied with the ranked word
    // at every asking until it is read again, as neither's counts change meanwhile.
    const bool any_changed = !memo.changed_beyonds.empty();
    if (any_changed) changed_beyonds_.Assign(memo.changed_beyonds);
    memo.changed_beyonds.clear();
    const std::uint32_t stamp = memo.epoch << 1;
    auto prefixes_apart = [&ranked](const Keyed& word) {
        for (std::size_t level = 0; level < word.prefixes.size(); ++level) {
            if (word.prefixes[level] == ranked.prefixes[level]) return false;
        }
        return true;
    };
    std::int32_t before = 0;
    std::uint64_t remembered = 0;
    for (const std::uint32_t index : tied_) {
        if (index == chosen) continue;
        RankMemo::Known& known = memo.known[index];
        if ((known.stamp & ~1U) == stamp && !(any_changed && changed_beyonds_.Holds(known.beyond))) {
            ++remembered;
            before += static_cast<std::int32_t>(known.stamp & 1U);
            continue;
        }
        known.stamp = 0;
        // Where the copied counts tie and the first prefixes past them differ in count, that
        // decides, and holds while neither count changes.
        const Keyed& word = words[index];
        if (beyond_count >= 0 && word.beyond >= 0 && word.beyond != ranked.beyond && word.counts == ranked.counts &&
            prefixes_apart(word)) {
            const std::int32_t count = trie_->Count(word.beyond);
            if (count != beyond_count) {
                ++remembered;
                const bool is_before = count > beyond_count;
                known = RankMemo::Known{stamp | (is_before ? 1U : 0U), word.beyond};
                before += is_before ? 1 : 0;
                continue;
            }
        }
        before += SearchBefore(word, ranked) ? 1 : 0;
    }
    // Each counts as a walk that the first step ended, as it would have been.
    CountWalks(remembered);
    return before;
}

// The kept count, the count and two prefixes' counts.
std::uint64_t WordListView::ListKey(const Keyed& word) {
    return PackCounts({static_cast<std::uint64_t>(word.kept), word.counts[0] >> 32, word.counts[0] & 0xFFFFFFFFU,
                       word.counts[1] >> 32});
}

// The count and three prefixes' counts.
std::uint64_t WordListView::SearchKey(const Keyed& word) {
    return PackCounts(
        {word.counts[0] >> 32, word.counts[0] & 0xFFFFFFFFU, word.counts[1] >> 32, word.counts[1] & 0xFFFFFFFFU});
}

// The node at a place of a trie group in list order, with its rank. A walk asks for one or two
// places of most groups, so these are selected one by one; a group asked about more often is
// sorted once for the rest of the pass.
std::pair<std::int32_t, std::int32_t> WordListView::NodeAt(int length, int offset, Rank rank) {
    constexpr std::size_t kSelectionsBeforeSorting = 4;
    if (length == 2) {
        pairs_.Update(*trie_);
        return pairs_.At(offset);
    }
    // A word alone in its group is first in both orders; a long run or repeat makes thousands of
    // such groups, which need no order kept.
    if (trie_->GroupSize(length) == 1) return {trie_->Group(length).front(), 1};
    GroupOrder& order = Order(length);
    if (order.list.empty()) {
        auto answer = [&](Placed& placed) {
            if (placed.rank == 0 && rank == Rank::kWanted) placed.rank = SearchRank(length, placed);
            return std::pair{placed.node, placed.rank};
        };
        for (Placed& placed : order.selected) {
            if (placed.offset == offset) return answer(placed);
        }
        if (order.selected.size() < kSelectionsBeforeSorting) {
            order.selected.push_back(Select(length, offset));
            return answer(order.selected.back());
        }
        SortGroup(length, order);
    }
    return order.list[static_cast<std::size_t>(offset)];
}

WordListView::Entry WordListView::At(int position, Rank rank) {
    const Place place = Locate(position);
    if (place.length < 2) return Entry{place.length, 0, 1};
    if (place.extension >= 0) {
        const Extension& group = extensions_[static_cast<std::size_t>(place.extension)];
        const std::int32_t index = group.list_order[static_cast<std::size_t>(place.offset)];
        return Entry{group.length, group.words[index].count, index + 1};
    }
    const int last = trie_->GroupSize(place.length) - 1;
    if (place.length > 2 && last > 0 && (place.offset == 0 || place.offset == last)) {
        if (const std::optional<Entry> entry = EntryAtEnds(place.length, place.offset, rank)) return *entry;
    }
    if (place.length > 2 && last > 0) {
        if (const std::optional<Entry> entry = EntryFromCounts(place.length, place.offset, rank)) return *entry;
    }
    const auto [node, search_rank] = NodeAt(place.length, place.offset, rank);
    return Entry{place.length, trie_->Kept(node), search_rank};
}

// The list orders a group by kept count and then as the search does, which orders by count first:
// the words whose kept count is their count lie in the same order in both, and only the few that
// dropping the overlaps moved lie elsewhere. So the kept count at a place follows from the keys,
// and its rank from how many words lie before it, which the moved words alone leave to compare.
// A walk asks for places in the middle of groups of thousands of words that tie on every copied
// count, where picking the word out would compare it with all of them.
std::optional<WordListView::Entry> WordListView::EntryFromCounts(int length, int offset, Rank rank) {
    GroupOrder& order = Order(length);
    KeyedWords& words = KeptGroup(length);
    if (!order.moved_listed) {
        order.moved_listed = true;
        order.moved.clear();
        const std::vector<std::uint32_t>& moved = keyed_[length].moved;
        order.too_many_moved = moved.size() > kMostMoved;
        for (std::size_t k = 0; k < moved.size() && !order.too_many_moved; ++k)
            order.moved.push_back(Moved{moved[k], words[moved[k]].kept, words[moved[k]].Count()});
    }
    if (order.too_many_moved) return std::nullopt;
    const std::size_t before =
        keyed_[length].list_keys.TiedWithNth(static_cast<std::size_t>(offset), tied_, select_room_);
    // Keys that saturate tie words of different counts.
    const std::int32_t kept = words[tied_.front()].kept;
    const std::int32_t count = words[tied_.front()].Count();
    for (const std::uint32_t index : tied_) {
        if (words[index].kept != kept || words[index].Count() != count) return std::nullopt;
    }
    if (rank == Rank::kUnneeded) return Entry{length, kept, 0};
    if (kept < count) {
        // A moved word: few tie with it.
        const std::uint32_t place = NthTiedInList(words, static_cast<std::size_t>(offset) - before);
        // The moved words were listed in the copy's order of them, which holds for the pass.
        Moved& word = order.moved[static_cast<std::size_t>(keyed_[length].moved_at[place])];
        return Entry{length, kept, MovedRank(length, word)};
    }
    // The words not moved that come before this one in the list come before it in the search
    // too; so does a moved word that keeps as many or more, as it occurs more often.
    std::int32_t unmoved_before = offset;
    for (const Moved& word : order.moved)
        unmoved_before -= word.kept >= kept ? 1 : 0;
    std::int32_t search_rank = 1 + unmoved_before;
    int unplaced = 0;  // moved words of the same count not yet placed among the unmoved ones
    for (const Moved& word : order.moved) {
        search_rank += word.count > count ? 1 : 0;
        unplaced += word.count == count && word.unmoved_before < 0 ? 1 : 0;
    }
    // A moved word of the same count comes first where no more unmoved words come before it.
    // Placing one compares it with the words tied with it, as picking out this word does: with
    // more than one to place, this word is picked out and compared with each instead.
    const Keyed* here = nullptr;
    if (unplaced > 1)
        here = &words[static_cast<std::size_t>(trie_->GroupIndex(NodeAt(length, offset, Rank::kUnneeded).first))];
    for (Moved& word : order.moved) {
        if (word.count != count) continue;
        search_rank += (here != nullptr ? SearchBefore(words[word.index], *here)
                                        : UnmovedBefore(length, order, word) <= unmoved_before)
                           ? 1
                           : 0;
    }
    return Entry{length, kept, search_rank};
}

std::int32_t WordListView::MovedRank(int length, Moved& word) {
    if (word.search_rank == 0) {
        word.search_rank = SearchRank(length, Placed{0, keyed_[length].words[word.index].node, 0});
    }
    return word.search_rank;
}

std::int32_t WordListView::UnmovedBefore(int length, GroupOrder& order, Moved& word) {
    if (word.unmoved_before < 0) {
        const KeyedWords& words = keyed_[length].words;
        word.unmoved_before = MovedRank(length, word) - 1;
        for (const Moved& other : order.moved) {
            if (&other != &word && SearchBefore(words[other.index], words[word.index])) --word.unmoved_before;
        }
    }
    return word.unmoved_before;
}

void WordListView::LastGroupOccurrences(int length, std::vector<std::vector<std::int32_t>>& starts,
                                        std::vector<std::vector<std::int32_t>>& ends) {
    if (extensions_.empty()) {
        GroupOrder& order = Order(length);
        if (order.list.empty()) SortGroup(length, order);
        for (const auto& [node, rank] : order.list) {
            starts.emplace_back();
            ends.emplace_back();
            trie_->KeptOccurrences(node, starts.back(), ends.back());
        }
        return;
    }
    const Extension& parents = extensions_.back();
    for (const std::int32_t index : parents.list_order) {
        const Extension::Word& word = parents.words[index];
        starts.emplace_back(parents.starts.begin() + word.begin, parents.starts.begin() + word.begin + word.count);
        ends.emplace_back(parents.ends.begin() + word.begin, parents.ends.begin() + word.begin + word.count);
    }
}

bool WordListView::ExtendLastGroup() {
    const int parent_length = LastLength();
    if (parent_length < 2) return false;
    std::vector<std::vector<std::int32_t>> parent_starts;
    std::vector<std::vector<std::int32_t>> parent_ends;
    LastGroupOccurrences(parent_length, parent_starts, parent_ends);

    // Each parent's occurrences split by the symbol after them; a symbol that follows twice or
    // more makes a word, in the order of its first occurrence. Symbols are stamped with the
    // parent that last saw them, so the tables are not cleared between parents.
    const LinkedRules& text = trie_->text();
    std::vector<std::int32_t> seen_by_parent;  // per symbol
    std::vector<std::int32_t> child_of_symbol;
    std::vector<std::int32_t> children;  // per child: its count, then its word or -1
    Extension group;
    group.length = parent_length + 1;
    for (std::size_t p = 0; p < parent_starts.size(); ++p) {
        const std::vector<std::int32_t>& starts = parent_starts[p];
        const std::vector<std::int32_t>& ends = parent_ends[p];
        const auto stamp = static_cast<std::int32_t>(p + 1);
        children.clear();
        for (const std::int32_t end : ends) {
            const std::int32_t next = text.Next(end);
            if (next < 0) continue;
            const auto symbol = static_cast<std::size_t>(text.Symbol(next));
            if (symbol >= seen_by_parent.size()) {
                seen_by_parent.resize(symbol + 1, 0);
                child_of_symbol.resize(symbol + 1, 0);
            }
            if (seen_by_parent[symbol] != stamp) {
                seen_by_parent[symbol] = stamp;
                child_of_symbol[symbol] = static_cast<std::int32_t>(children.size());
                children.push_back(0);
            }
            ++children[child_of_symbol[symbol]];
        }
        for (std::int32_t& child : children) {
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
            const std::int32_t next = text.Next(ends[j]);
            if (next < 0) continue;
            const std::int32_t word_index = children[child_of_symbol[text.Symbol(next)]];
            if (word_index < 0) continue;
            Extension::Word& word = group.words[word_index];
            const auto at = static_cast<std::size_t>(word.begin + word.count++);
            group.starts[at] = starts[j];
            group.ends[at] = next;
        }
    }
    if (group.words.empty()) return false;
    std::stable_sort(group.words.begin(), group.words.end(),
                     [](const Extension::Word& a, const Extension::Word& b) { return a.count > b.count; });
    // The overlaps dropped, then the group ordered by the counts left, stably.
    for (Extension::Word& word : group.words) {
        const std::span<std::int32_t> starts(group.starts.data() + word.begin, static_cast<std::size_t>(word.count));
        const std::span<std::int32_t> ends(group.ends.data() + word.begin, static_cast<std::size_t>(word.count));
        word.count = static_cast<std::int32_t>(KeepApart(starts, ends, [&](std::size_t j) { return ends[j]; }));
    }
    group.list_order.resize(group.words.size());
    for (std::size_t i = 0; i < group.list_order.size(); ++i)
        group.list_order[i] = static_cast<std::int32_t>(i);
    std::stable_sort(group.list_order.begin(), group.list_order.end(),
                     [&](std::int32_t a, std::int32_t b) { return group.words[a].count > group.words[b].count; });
    extensions_.push_back(std::move(group));
    return true;
}

std::int64_t WordListView::AddRule(int position, std::int32_t code) {
    const Place place = Locate(position);
    std::vector<std::int32_t> starts;
    if (place.extension >= 0) {
        const Extension& group = extensions_[static_cast<std::size_t>(place.extension)];
        const Extension::Word& word = group.words[group.list_order[static_cast<std::size_t>(place.offset)]];
        starts.assign(group.starts.begin() + word.begin, group.starts.begin() + word.begin + word.count);
    } else {
        std::vector<std::int32_t> ends;
        trie_->KeptOccurrences(NodeAt(place.length, place.offset, Rank::kUnneeded).first, starts, ends);
    }
    return Replace(starts, place.length, code);
}

std::optional<LongWords> WordListView::ReadLongWords(ProgressMeter& meter) {
    return LongWords::Read(
        *trie_, [this](std::int32_t a, std::int32_t b) { return SearchBefore(a, b); }, meter);
}

std::int64_t WordListView::AddRule(const LongWords::Word& word, std::int32_t code) {
    return Replace(word.starts, word.length, code);
}

std::int64_t WordListView::Replace(const std::vector<std::int32_t>& starts, int length, std::int32_t code) {
    const std::int64_t change = length - static_cast<std::int64_t>(starts.size()) * (length - 1);
    symbols_ += change;
    if (!trie_->Replace(starts, length, code) || WorthCuttingAgain()) {
        Rebuild();
    } else {
        NoteChanges();
    }
    extensions_.clear();
    cursor_ = GroupCursor{};
    ++generation_;
    return change;
}

// Where long repeats still run down to the cut, a build costs less than what a cut a few dozen
// symbols higher spares the passes after it, once the rules have shrunk by an eighth: Maximum Gain
// on E. coli 536 could cut at 53 symbols after 100 passes and at 34 after 700, where its last build
// for the pairs cut at 75.
bool WordListView::WorthCuttingAgain() const {
    return CutAtOverlaps() && trie_->GroupCount() >= max_depth() && symbols_ * 8 < built_symbols_ * 7;
}

}  // namespace tessarin
