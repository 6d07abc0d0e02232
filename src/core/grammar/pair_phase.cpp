#include "grammar/pair_phase.h"

#include <algorithm>
#include <functional>

namespace tessarin {

// Room for the rules to come beside the sequence, so that the first new rules do not double
// arrays of millions of slots. There are never more pairs than slots; room reserved for them is
// only address space until used, and spares a copy of them all while the array would grow.
PairPhase::PairPhase(std::vector<std::int32_t> symbols, Poll poll)
    : poll_(std::move(poll)),
      sequence_length_(static_cast<std::int32_t>(symbols.size())),
      symbols_(std::move(symbols)) {
    const std::size_t room = symbols_.size() + symbols_.size() / 8 + 1024;
    pairs_.reserve(room);
    symbols_.reserve(room);
    next_in_pair_.reserve(room);
    prev_in_pair_.reserve(room);
    next_in_pair_.assign(symbols_.size(), -1);
    prev_in_pair_.assign(symbols_.size(), -1);
    table_.assign(1024, -1);
    shift_ = 64 - 10;
    for (std::int32_t slot = 0; slot + 1 < sequence_length_ && !stopped_; ++slot) {
        scanned_ = static_cast<double>(slot) / sequence_length_;
        AddOccurrence(FindOrAdd(symbols_[slot], symbols_[slot + 1]), slot);
        Step();
    }
    scanned_ = -1;
}

bool PairPhase::SearchBefore(const Pair& x, const Pair& y) {
    return x.count != y.count ? x.count > y.count : Key(x) < Key(y);
}

bool PairPhase::ListBefore(const Pair& x, const Pair& y) {
    return x.kept != y.kept ? x.kept > y.kept : SearchBefore(x, y);
}

// ---- The slots ----
// Rule 0 holds the sequence's slots, each later rule two slots after all others. A slot taken out
// holds 0 and lies in a gap; the gap's first slot points past it, its last slot before it.

std::int32_t PairPhase::RuleBegin(std::int32_t slot) const {
    return slot < sequence_length_ ? 0 : sequence_length_ + ((slot - sequence_length_) & ~1);
}

std::int32_t PairPhase::RuleEnd(std::int32_t slot) const {
    return slot < sequence_length_ ? sequence_length_ : RuleBegin(slot) + 2;
}

std::int32_t PairPhase::Next(std::int32_t slot) const {
    const std::int32_t end = RuleEnd(slot);
    std::int32_t next = slot + 1;
    if (next < end && symbols_[next] == 0) next = next_in_pair_[next];
    return next < end ? next : -1;
}

// A rule's first slot is never taken out, so a gap always has a live slot before it.
std::int32_t PairPhase::Prev(std::int32_t slot) const {
    const std::int32_t prev = slot - 1;
    if (prev < RuleBegin(slot)) return -1;
    return symbols_[prev] == 0 ? prev_in_pair_[prev] : prev;
}

// The pair that starts at `slot` becomes `code`: its second slot joins the gap after the first,
// and the pairs it made with its neighbours give way to pairs with the code.
void PairPhase::ReplaceAt(std::int32_t slot, std::int32_t code) {
    const std::int32_t second_slot = Next(slot);
    const std::int32_t after = Next(second_slot);
    const std::int32_t before = Prev(slot);
    if (before >= 0) RemoveOccurrence(before);
    RemoveOccurrence(slot);
    if (after >= 0) RemoveOccurrence(second_slot);
    const std::int32_t gap_end = after >= 0 ? after : RuleEnd(second_slot);
    symbols_[second_slot] = 0;
    next_in_pair_[slot + 1] = gap_end;
    prev_in_pair_[gap_end - 1] = slot;
    symbols_[slot] = code;
    if (before >= 0) AddOccurrence(FindOrAdd(symbols_[before], code), before);
    if (after >= 0) AddOccurrence(FindOrAdd(code, symbols_[after]), slot);
    Step();
}

std::vector<Rule> PairPhase::Rules() const {
    std::vector<Rule> rules(codes_.size() + 1);
    for (std::size_t slot = 0; slot < symbols_.size(); ++slot) {
        if (symbols_[slot] == 0) continue;
        const std::size_t rule = slot < static_cast<std::size_t>(sequence_length_)
                                     ? 0
                                     : 1 + (slot - static_cast<std::size_t>(sequence_length_)) / 2;
        rules[rule].symbols.push_back(symbols_[slot]);
    }
    for (std::size_t r = 0; r < codes_.size(); ++r)
        rules[r + 1].code = codes_[r];
    return rules;
}

// ---- The pairs ----
// An open-addressing table of pair ids, at most half full, keyed by the pairs' symbols.

std::int32_t PairPhase::Find(std::int32_t first, std::int32_t second) {
    const std::size_t mask = table_.size() - 1;
    for (std::size_t at = Home(Key(first, second));; at = (at + 1) & mask) {
        const std::int32_t id = table_[at];
        if (id < 0 || (pairs_[id].first == first && pairs_[id].second == second)) return id;
    }
}

std::int32_t PairPhase::FindOrAdd(std::int32_t first, std::int32_t second) {
    const std::int32_t found = Find(first, second);
    if (found >= 0) return found;
    if (2 * (table_size_ + 1) > table_.size()) GrowTable();
    std::int32_t id;
    if (free_pairs_.empty()) {
        id = static_cast<std::int32_t>(pairs_.size());
        pairs_.emplace_back();
    } else {
        id = free_pairs_.back();
        free_pairs_.pop_back();
        pairs_[id] = Pair{};
    }
    pairs_[id].first = first;
    pairs_[id].second = second;
    const std::size_t mask = table_.size() - 1;
    std::size_t at = Home(Key(first, second));
    while (table_[at] >= 0)
        at = (at + 1) & mask;
    table_[at] = id;
    ++table_size_;
    return id;
}

void PairPhase::GrowTable() {
    std::vector<std::int32_t> old = std::exchange(table_, std::vector<std::int32_t>(2 * table_.size(), -1));
    --shift_;
    const std::size_t mask = table_.size() - 1;
    for (const std::int32_t id : old) {
        if (id < 0) continue;
        std::size_t at = Home(Key(pairs_[id]));
        while (table_[at] >= 0)
            at = (at + 1) & mask;
        table_[at] = id;
    }
}

// A pair without occurrences leaves the table; the later entries of its cluster move back into
// the hole, so no deleted markers build up.
void PairPhase::Forget(std::int32_t id) {
    const std::size_t mask = table_.size() - 1;
    std::size_t hole = Home(Key(pairs_[id]));
    while (table_[hole] != id)
        hole = (hole + 1) & mask;
    for (std::size_t at = (hole + 1) & mask; table_[at] >= 0; at = (at + 1) & mask) {
        const std::size_t home = Home(Key(pairs_[table_[at]]));
        const bool stays = hole <= at ? (hole < home && home <= at) : (hole < home || home <= at);
        if (stays) continue;
        table_[hole] = table_[at];
        hole = at;
    }
    table_[hole] = -1;
    --table_size_;
    pairs_[id] = Pair{};
    free_pairs_.push_back(id);
}

void PairPhase::AddOccurrence(std::int32_t id, std::int32_t slot) {
    Pair& pair = pairs_[id];
    next_in_pair_[slot] = pair.head;
    prev_in_pair_[slot] = -1;
    if (pair.head >= 0) prev_in_pair_[pair.head] = slot;
    pair.head = slot;
    ++pair.count;
    Refile(id);
}

void PairPhase::RemoveOccurrence(std::int32_t slot) {
    const std::int32_t id = PairAt(slot);
    Pair& pair = pairs_[id];
    const std::int32_t next = next_in_pair_[slot];
    const std::int32_t prev = prev_in_pair_[slot];
    if (prev >= 0) {
        next_in_pair_[prev] = next;
    } else {
        pair.head = next;
    }
    if (next >= 0) prev_in_pair_[next] = prev;
    --pair.count;
    Refile(id);
}

// ---- The filing ----

// A pair whose count changes leaves its bucket until the end of the pass, when it is filed once
// however often its count changed, and a doubled symbol's runs are settled.
void PairPhase::Refile(std::int32_t id) {
    Pair& pair = pairs_[id];
    if (pair.filed == Filed::kStale) return;
    Unfile(id);
    pair.filed = Filed::kStale;
    stale_.push_back(id);
}

void PairPhase::Unfile(std::int32_t id) {
    Pair& pair = pairs_[id];
    if (pair.filed == Filed::kBucket) {
        if (pair.prev >= 0) {
            pairs_[pair.prev].next = pair.next;
        } else {
            bucket_heads_[pair.kept] = pair.next;
        }
        if (pair.next >= 0) pairs_[pair.next].prev = pair.prev;
        --bucket_sizes_[pair.kept];
        --in_buckets_;
        if (pair.kept == behind_count_ && Key(pair) > behind_key_) --behind_;
        for (Sorted& sorted : sorted_) {
            if (pair.kept != sorted.count) continue;
            sorted.pairs.erase(std::lower_bound(sorted.pairs.begin(), sorted.pairs.end(),
                                                std::make_pair(Key(pair), std::int32_t{-1})));
        }
    } else if (pair.filed == Filed::kUneven) {
        const std::int32_t moved = uneven_.back();
        uneven_[pair.prev] = moved;
        pairs_[moved].prev = pair.prev;
        uneven_.pop_back();
    }
    pair.filed = Filed::kNowhere;
}

// A pair that joins the highest bucket joins its heap too; one above it starts a new highest.
void PairPhase::FileInBucket(std::int32_t id) {
    Pair& pair = pairs_[id];
    const std::int32_t count = pair.count;
    if (bucket_heads_.size() <= static_cast<std::size_t>(count)) {
        bucket_heads_.resize(static_cast<std::size_t>(count) + 1, -1);
        bucket_sizes_.resize(bucket_heads_.size(), 0);
    }
    pair.kept = count;
    pair.prev = -1;
    pair.next = bucket_heads_[count];
    if (pair.next >= 0) pairs_[pair.next].prev = id;
    bucket_heads_[count] = id;
    ++bucket_sizes_[count];
    ++in_buckets_;
    if (count == behind_count_ && Key(pair) > behind_key_) ++behind_;
    for (Sorted& sorted : sorted_) {
        if (count != sorted.count) continue;
        const auto entry = std::make_pair(Key(pair), id);
        sorted.pairs.insert(std::lower_bound(sorted.pairs.begin(), sorted.pairs.end(), entry), entry);
    }
    pair.filed = Filed::kBucket;
    if (count > top_) {
        top_ = count;
        top_heap_stale_ = true;
    } else if (count == top_ && !top_heap_stale_) {
        top_heap_.emplace_back(Key(pair), id);
        std::push_heap(top_heap_.begin(), top_heap_.end(), std::greater<>());
    }
}

// The pairs changed in the pass go back to the buckets, or to the uneven ones when runs of a
// doubled symbol keep fewer occurrences than they count.
void PairPhase::Settle() {
    for (const std::int32_t id : stale_) {
        Pair& pair = pairs_[id];
        pair.filed = Filed::kNowhere;
        if (pair.count == 0) {
            Forget(id);
        } else if (pair.count >= 2) {
            pair.kept = pair.first == pair.second ? KeptApart(pair) : pair.count;
            if (pair.kept == pair.count) {
                FileInBucket(id);
            } else {
                pair.prev = static_cast<std::int32_t>(uneven_.size());
                uneven_.push_back(id);
                pair.filed = Filed::kUneven;
            }
        }
    }
    stale_.clear();
}

// Occurrences of a doubled symbol taken left to right, each clear of the last: half of each run.
std::int32_t PairPhase::KeptApart(const Pair& pair) {
    std::int32_t kept = 0;
    for (std::int32_t slot = pair.head; slot >= 0; slot = next_in_pair_[slot]) {
        const std::int32_t before = Prev(slot);
        if (before >= 0 && symbols_[before] == pair.first) continue;
        std::int32_t run = 1;
        for (std::int32_t at = Next(slot); at >= 0 && symbols_[at] == pair.first; at = Next(at)) {
            ++run;
            Step();
        }
        kept += run / 2;
    }
    return kept;
}

// The first bucket pair in search order, or -1 when the buckets are empty.
std::int32_t PairPhase::TopOfBuckets() {
    for (;;) {
        if (top_ < 2) return -1;
        if (top_heap_stale_) {
            top_heap_.clear();
            for (std::int32_t id = bucket_heads_[top_]; id >= 0; id = pairs_[id].next)
                top_heap_.emplace_back(Key(pairs_[id]), id);
            std::make_heap(top_heap_.begin(), top_heap_.end(), std::greater<>());
            top_heap_stale_ = false;
        }
        while (!top_heap_.empty()) {
            const auto [key, id] = top_heap_.front();
            const Pair& pair = pairs_[id];
            if (pair.filed == Filed::kBucket && pair.count == top_ && Key(pair) == key) return id;
            std::pop_heap(top_heap_.begin(), top_heap_.end(), std::greater<>());
            top_heap_.pop_back();
        }
        do {
            --top_;
        } while (top_ >= 2 && bucket_sizes_[top_] == 0);
        top_heap_stale_ = true;
    }
}

// The pass often looks into one of two buckets by turns, so the two last looked into stay sorted.
const std::vector<std::pair<std::uint64_t, std::int32_t>>& PairPhase::SortedBucket(std::int32_t count) {
    if (sorted_[0].count != count) {
        std::swap(sorted_[0], sorted_[1]);
        if (sorted_[0].count != count) {
            sorted_[0].count = count;
            sorted_[0].pairs.clear();
            for (std::int32_t id = bucket_heads_[count]; id >= 0; id = pairs_[id].next)
                sorted_[0].pairs.emplace_back(Key(pairs_[id]), id);
            std::sort(sorted_[0].pairs.begin(), sorted_[0].pairs.end());
        }
    }
    return sorted_[0].pairs;
}

std::int32_t PairPhase::LowestBucket() const {
    std::int32_t count = 2;
    while (bucket_sizes_[count] == 0)
        ++count;
    return count;
}

// The list puts the pairs in blocks of falling kept count, each block its uneven pairs and then
// its bucket; the pass looks at the place as far from the start as `last` is from the end of
// the search order.
std::int32_t PairPhase::ChooseBehindUneven(std::int32_t last) {
    const Pair& q = pairs_[last];
    std::int64_t place = 0;
    const auto buckets = static_cast<std::int32_t>(bucket_sizes_.size());
    for (std::int32_t count = 2; count < std::min(q.count, buckets); ++count)
        place += bucket_sizes_[count];
    if (q.count != behind_count_ || Key(q) != behind_key_) {
        behind_count_ = q.count;
        behind_key_ = Key(q);
        behind_ = 0;
        if (q.count < buckets) {
            for (std::int32_t id = bucket_heads_[q.count]; id >= 0; id = pairs_[id].next)
                behind_ += Key(pairs_[id]) > behind_key_ ? 1 : 0;
        }
    }
    place += behind_;
    for (const std::int32_t id : uneven_)
        place += SearchBefore(q, pairs_[id]) ? 1 : 0;

    std::vector<std::int32_t> uneven = uneven_;
    std::sort(uneven.begin(), uneven.end(),
              [this](std::int32_t x, std::int32_t y) { return ListBefore(pairs_[x], pairs_[y]); });
    // Above the highest bucket only uneven pairs keep so many.
    std::size_t u = 0;
    for (; u < uneven.size() && pairs_[uneven[u]].kept > top_; ++u) {
        if (place-- == 0) return uneven[u];
    }
    for (std::int32_t kept = top_;; --kept) {
        for (; u < uneven.size() && pairs_[uneven[u]].kept == kept; ++u) {
            if (place-- == 0) return uneven[u];
        }
        if (kept >= buckets) continue;
        if (place < bucket_sizes_[kept]) return SortedBucket(kept)[static_cast<std::size_t>(place)].second;
        place -= bucket_sizes_[kept];
    }
}

// The pass takes the pair as many places from the start of the list as the list's last pair has
// pairs behind it in search order. While no uneven pair comes last, that last pair is also last
// in search order and the pass takes the first pair of the list.
std::int32_t PairPhase::Choose() {
    chosen_ = -1;
    Settle();
    const std::int32_t top = TopOfBuckets();
    std::int32_t last = -1;
    for (const std::int32_t id : uneven_) {
        if (last < 0 || ListBefore(pairs_[last], pairs_[id])) last = id;
    }
    if (last >= 0 && (top < 0 || pairs_[last].kept < LowestBucket())) {
        chosen_ = ChooseBehindUneven(last);
    } else {
        chosen_ = top;
        for (const std::int32_t id : uneven_) {
            if (ListBefore(pairs_[id], pairs_[chosen_])) chosen_ = id;
        }
    }
    if (stopped_ || chosen_ < 0 || pairs_[chosen_].kept <= 2) {
        chosen_ = -1;
        return 0;
    }
    return pairs_[chosen_].kept;
}

// Two different symbols: no occurrences overlap, and replacing one takes no other off the list,
// so they are replaced as the list is walked. A doubled symbol: each run from its start, every
// other slot, gathered before any is replaced.
std::int64_t PairPhase::AddRule(std::int32_t code) {
    const Pair pair = pairs_[chosen_];
    std::int64_t replaced = 0;
    if (pair.first != pair.second) {
        for (std::int32_t slot = pair.head; slot >= 0;) {
            const std::int32_t next = next_in_pair_[slot];
            ReplaceAt(slot, code);
            ++replaced;
            slot = next;
        }
    } else {
        std::vector<std::int32_t> starts;
        for (std::int32_t slot = pair.head; slot >= 0; slot = next_in_pair_[slot]) {
            const std::int32_t before = Prev(slot);
            if (before >= 0 && symbols_[before] == pair.first) continue;
            for (std::int32_t at = slot; at >= 0 && symbols_[at] == pair.first;) {
                const std::int32_t next = Next(at);
                if (next < 0 || symbols_[next] != pair.first) break;
                starts.push_back(at);
                at = Next(next);
            }
        }
        for (const std::int32_t slot : starts)
            ReplaceAt(slot, code);
        replaced = static_cast<std::int64_t>(starts.size());
    }
    const auto body = static_cast<std::int32_t>(symbols_.size());
    symbols_.push_back(pair.first);
    symbols_.push_back(pair.second);
    next_in_pair_.resize(symbols_.size(), -1);
    prev_in_pair_.resize(symbols_.size(), -1);
    codes_.push_back(code);
    AddOccurrence(FindOrAdd(pair.first, pair.second), body);
    chosen_ = -1;
    return 2 - replaced;
}

}  // namespace tessarin
