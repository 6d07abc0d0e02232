#include <algorithm>
#include <array>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/physical_memory.h"
#include "grammar/joined_rules.h"
#include "grammar/repeat_trie.h"
#include "subwords/suffix_array.h"

namespace tessarin {
namespace {

// The share of the build's progress that sorting the suffixes takes.
constexpr double kSortShare = 0.3;

// The words the sweep makes nodes for, down to `max_depth`: each suffix adds those of its common
// prefix with the one before it that are longer than the common prefix before (exact for one rule).
std::uint64_t RepeatedWords(const std::vector<std::int32_t>& common, std::int32_t max_depth) {
    std::uint64_t words = 0;
    std::int32_t before = 0;
    for (const std::int32_t shared : common) {
        const std::int32_t now = std::min(shared, max_depth);
        if (now > before) words += static_cast<std::uint64_t>(now - before);
        before = now;
    }
    return words;
}

}  // namespace

// The words that repeat are the common prefixes of suffixes next to each other in sorted order,
// so one sweep over the sorted suffixes meets every node in depth-first order: a node opens where
// a common prefix grows past it and closes where it falls below, its count being the suffixes in
// between. The nodes of one subtree then lie together in memory, and no slot's path is walked
// through the child table, as adding the slots one by one would.
void RepeatTrie::AttachBySuffixes(std::span<const Rule> rules, std::optional<SuffixArray> suffixes,
                                  const OverlappingWords& overlapping) {
    JoinedRules joined = JoinRules(rules);
    const ProgressFn sort_poll = [this](const std::string&, float sorted) {
        scanned_ = kSortShare * sorted;
        return poll_ && poll_(scanned_);
    };
    ProgressMeter meter(sort_poll, "", SuffixArrayUnits(joined.symbols.size()));
    if (!suffixes) suffixes = BuildSuffixArray(joined.symbols, joined.alphabet_size, meter);
    if (!suffixes) {
        stopped_ = true;
        return;
    }
    // The sweep reads the symbols from the slots: the joined copy goes before the nodes come.
    joined.symbols = {};
    const std::vector<std::int32_t>& order = suffixes->order;
    const std::vector<std::int32_t>& common = suffixes->common;
    const auto places = static_cast<std::int32_t>(order.size());
    // A stretch of tens of thousands of symbols repeated in copies that overlap (a tandem repeat)
    // makes a node per symbol of a copy for every length: more than any memory holds. Such a
    // sequence is turned away before the nodes take the memory, not after they have filled it.
    const std::uint64_t memory = PhysicalMemory();
    if (memory > 0 && RepeatedWords(common, max_depth_) > memory / (sizeof(Node) + 2 * sizeof(std::int32_t)))
        throw std::bad_alloc();

    // A word keeps every occurrence unless two of them overlap, one starting a period after the
    // other: the text there runs on with that period past the word's end. The sweep meets every
    // such stretch, as a node or as the rest of a suffix, and marks the words on its path that it
    // makes overlap; a word left unmarked keeps its count, which spares the walk after the build
    // working its kept count out from the child table or the occurrences. A mark covers a range of
    // the path, noted at its deepest word and handed up as words close, so that it costs the same
    // however long the range.
    constexpr int kMostBorders = 4;
    // How far the text is read past the path for a period; a stretch going on further is taken to
    // go on as far as it matters, which marks no word wrongly, only leaves one to be worked out.
    constexpr int kMostRead = 64;
    struct Open {
        std::int32_t node;
        std::int32_t first;     // the first suffix in sorted order below it
        std::int32_t min_slot;  // the least slot below it so far
        // The least depth of a mark that reaches this deep on the path.
        int marked_from;
        std::array<std::int32_t, kMostBorders> borders;  // longest first
        int border_count;                                // -1: more, or not all known
    };
    std::vector<Open> open;  // the nodes of the current path, by depth
    auto mark = [&open](int least, int most) {
        if (least > most) return;
        int& from = open[static_cast<std::size_t>(most - 1)].marked_from;
        from = std::min(from, least);
    };
    // Marks the words on the path that overlap within a stretch of text that starts at `slot`
    // with the path's first `length` symbols and has the given borders: a border b leaves the
    // period length - b, and each word longer than the period and at least a period shorter than
    // the stretch occurs again a period after the slot. Up to `rest` symbols from the slot, the
    // stretch runs on as far as the text keeps the period. Borders not all known leave every
    // word that could overlap so marked.
    auto mark_overlaps = [&](const Open& stretch, int length, std::int32_t slot, std::int32_t rest) {
        const int deepest = std::min(length, static_cast<int>(open.size()));
        if (stretch.border_count < 0) {
            mark(2, deepest);
            return;
        }
        for (int k = 0; k < stretch.border_count; ++k) {
            const int period = length - stretch.borders[static_cast<std::size_t>(k)];
            int further = 0;
            while (further < period && length + further < rest &&
                   text_.Symbol(slot + length + further) == text_.Symbol(slot + length + further - period)) {
                if (++further == kMostRead) further = period;
            }
            mark(period + 1, std::min(deepest, length + further - period));
        }
    };
    OverlappingWords::Cursor overlaps(overlapping);
    std::int32_t common_before = 0;
    // The symbols from each suffix to the end of its rule, found once for it and its neighbour.
    std::int32_t rest_next = places > 0 ? joined.RestOfRule(order[0]) : 0;
    // The sweep meets the slots in sorted order, all over the slot states, the text and the child
    // table: it asks the memory for a suffix's state and symbols some suffixes before it comes to
    // them, and files each leaf as many suffixes after it has asked for the leaf's entry.
    constexpr std::int32_t kAhead = 8;
    const std::int32_t slot_count = text_.SlotCount();
    std::array<std::pair<std::uint64_t, std::int32_t>, kAhead> leaves{};  // a ring of leaves to file
    std::int32_t leaves_waiting = 0;
    auto file_leaf = [&](std::int32_t node, std::int32_t symbol, std::int32_t slot) {
        const std::uint64_t key = ChildKey(node, symbol);
        children_.Prefetch(key);
        slots_[slot].has_leaf = true;
        auto& entry = leaves[static_cast<std::size_t>(leaves_waiting++ % kAhead)];
        if (leaves_waiting > kAhead) children_.Insert(entry.first, kLeaf | entry.second);
        entry = {key, slot};
    };
    for (std::int32_t i = 0; i < places && !stopped_; ++i) {
        scanned_ = kSortShare + (1 - kSortShare) * i / places;
        if (i + kAhead + 1 < places) {
            const std::int32_t ahead = joined.SlotAt(order[i + kAhead]);
            if (ahead < slot_count) {
                PrefetchSlot(ahead);
                // The first symbol, which the border of each new node is checked against.
                text_.Prefetch(ahead);
                const std::int32_t common_ahead = std::max(common[i + kAhead], common[i + kAhead + 1]);
                text_.Prefetch(std::min(ahead + std::min(common_ahead, max_depth_), slot_count - 1));
                if (common[i + kAhead + 1] > common[i + kAhead])
                    text_.Prefetch(std::min(ahead + std::min(common[i + kAhead], max_depth_), slot_count - 1));
            }
        }
        const std::int32_t place = order[i];
        const std::int32_t rest = rest_next;
        rest_next = i + 1 < places ? joined.RestOfRule(order[i + 1]) : 0;
        const std::int32_t common_after = i + 1 < places ? std::min({common[i + 1], rest, rest_next, max_depth_}) : 0;
        const std::int32_t depth = std::max(common_before, common_after);
        if (rest == 0) {  // a separator
            common_before = common_after;
            continue;
        }
        const std::int32_t slot = joined.SlotAt(place);
        while (static_cast<std::int32_t>(open.size()) < depth) {
            Step();
            const std::int32_t parent = open.empty() ? kRoot : open.back().node;
            const auto length = static_cast<std::int32_t>(open.size());
            const std::int32_t symbol = text_.Symbol(slot + length);
            const std::int32_t node = NewNode(parent, symbol);
            const std::int8_t border = BorderOfNew(node, slot);
            nodes_[node].border = border;
            JoinGroup(node);
            Open opened{node, i, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<int>::max(), {}, 0};
            // The borders of a border are the shorter borders, and a border's border is that of
            // the prefix of its length, which lies on the path.
            for (std::int32_t b = border; b != 0;) {
                if (b == kUnknown || b == kLongBorder || opened.border_count == kMostBorders) {
                    opened.border_count = -1;
                    break;
                }
                opened.borders[static_cast<std::size_t>(opened.border_count++)] = b;
                b = nodes_[open[static_cast<std::size_t>(b - 1)].node].border;
            }
            mark_overlaps(opened, length + 1, slot, length + 1);
            open.push_back(opened);
        }
        const std::int32_t at = depth == 0 ? kRoot : open.back().node;
        EndPath(slot, at, depth == 0 ? -1 : slot + depth - 1);
        if (depth < max_depth_ && depth < rest) file_leaf(at, text_.Symbol(slot + depth), slot);
        // The stretch from this suffix on: only here is the text past the path's end read.
        if (depth > 0 && depth < rest) mark_overlaps(open.back(), depth, slot, rest);
        if (depth > 0) open.back().min_slot = std::min(open.back().min_slot, slot);
        while (static_cast<std::int32_t>(open.size()) > common_after) {
            const Open closed = open.back();
            const auto closed_depth = static_cast<int>(open.size());
            nodes_[closed.node].apart = overlaps.Apart(closed.first, i, closed_depth);
            open.pop_back();
            if (!open.empty() && closed.marked_from < closed_depth)
                open.back().marked_from = std::min(open.back().marked_from, closed.marked_from);
            nodes_[closed.node].count = i + 1 - closed.first;
            nodes_[closed.node].first_occurrence = closed.min_slot;
            if (closed.border_count > 0 && closed.marked_from > closed_depth && !nodes_[closed.node].run)
                nodes_[closed.node].kept = nodes_[closed.node].count;
            CountSettled(closed.node);
            if (!open.empty()) open.back().min_slot = std::min(open.back().min_slot, closed.min_slot);
        }
        common_before = common_after;
    }
    for (std::int32_t k = std::max(0, leaves_waiting - kAhead); k < leaves_waiting; ++k) {
        const auto& [key, slot] = leaves[static_cast<std::size_t>(k % kAhead)];
        children_.Insert(key, kLeaf | slot);
    }
}

}  // namespace tessarin
