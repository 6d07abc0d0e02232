#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "grammar/grammar.h"

namespace tessarin {

// The passes of NVOGRAM and Shortest First that make pairs into rules, on an engine of their own
// in the manner of Larsson and Moffat's Re-Pair: the rules as an array of slots, the occurrences
// of each pair threaded through the slots where they start, and the pairs filed by count, so a
// pass costs what its replacements touch. It answers which pair the word list at length 2 would
// have the pass take, and stops where that pair is kept 2 times or fewer; the word list then
// carries on from the rules as they stand. Memory is a few 32-bit words per slot and per pair.
class PairPhase {
  public:
    // Called every few milliseconds of work, with the share of the sequence read while the pairs
    // are first counted and with -1 after; answers true to stop the work.
    using Poll = std::function<bool(double scanned)>;

    // `symbols`: the sequence, codes 1..K; the engine keeps its rules in it.
    PairPhase(std::vector<std::int32_t> symbols, Poll poll = {});

    // The poll answered true: the phase must be dropped.
    bool stopped() const { return stopped_; }

    // Picks the pair the next pass makes a rule and answers its kept count, or 0 when no pair
    // qualifies and the phase is over.
    std::int32_t Choose();
    // Makes the pair last picked the rule `code`: its kept occurrences, left to right, are
    // replaced and the rule appended. Answers the change of K_G.
    std::int64_t AddRule(std::int32_t code);

    std::vector<Rule> Rules() const;

  private:
    enum class Filed : std::uint8_t { kNowhere, kBucket, kUneven, kStale };

    struct Pair {
        std::int32_t first = 0;
        std::int32_t second = 0;
        std::int32_t count = 0;  // occurrences, overlapping ones included
        std::int32_t kept = 0;   // occurrences apart, worked out when filed; a bucket's count
        std::int32_t head = -1;  // first slot of its occurrence list
        std::int32_t prev = -1;  // neighbours in its bucket; in uneven_, `prev` is the index
        std::int32_t next = -1;
        Filed filed = Filed::kNowhere;
    };

    // The key of the search order within one count: by symbols.
    static std::uint64_t Key(std::int32_t first, std::int32_t second) {
        return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(first)) << 32) |
               static_cast<std::uint32_t>(second);
    }
    static std::uint64_t Key(const Pair& pair) { return Key(pair.first, pair.second); }
    // Falling count, then by symbols, as a fresh search ranks the pairs.
    static bool SearchBefore(const Pair& x, const Pair& y);
    // Falling kept count, then search order, as the list has them once the overlaps are dropped.
    static bool ListBefore(const Pair& x, const Pair& y);

    void Step() {
        if (++steps_ % kStepsPerPoll == 0 && poll_ && !stopped_) stopped_ = poll_(scanned_);
    }

    // ---- The slots ----
    std::int32_t RuleBegin(std::int32_t slot) const;
    std::int32_t RuleEnd(std::int32_t slot) const;
    std::int32_t Next(std::int32_t slot) const;
    std::int32_t Prev(std::int32_t slot) const;
    void ReplaceAt(std::int32_t slot, std::int32_t code);

    // ---- The pairs ----
    std::size_t Home(std::uint64_t key) const {
        return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ULL) >> shift_);
    }
    std::int32_t Find(std::int32_t first, std::int32_t second);
    std::int32_t FindOrAdd(std::int32_t first, std::int32_t second);
    // The pair that starts at a slot holding an occurrence.
    std::int32_t PairAt(std::int32_t slot) { return Find(symbols_[slot], symbols_[Next(slot)]); }
    void Forget(std::int32_t id);
    void GrowTable();
    void AddOccurrence(std::int32_t id, std::int32_t slot);
    void RemoveOccurrence(std::int32_t slot);

    // ---- The filing ----
    void Refile(std::int32_t id);
    void Unfile(std::int32_t id);
    void FileInBucket(std::int32_t id);
    void Settle();
    std::int32_t KeptApart(const Pair& pair);
    std::int32_t TopOfBuckets();
    std::int32_t LowestBucket() const;
    const std::vector<std::pair<std::uint64_t, std::int32_t>>& SortedBucket(std::int32_t count);
    std::int32_t ChooseBehindUneven(std::int32_t last);

    static constexpr std::uint64_t kStepsPerPoll = 1 << 16;

    Poll poll_;
    std::uint64_t steps_ = 0;
    double scanned_ = -1;
    bool stopped_ = false;

    std::int32_t sequence_length_;            // the slots of rule 0; each later rule has two
    std::vector<std::int32_t> symbols_;       // per slot; 0 once the slot is taken out
    std::vector<std::int32_t> next_in_pair_;  // per slot: the occurrence list of the pair it starts;
    std::vector<std::int32_t> prev_in_pair_;  // at the ends of a gap, the live slot beyond it
    std::vector<std::int32_t> codes_;         // per rule

    std::vector<Pair> pairs_;
    std::vector<std::int32_t> free_pairs_;
    std::vector<std::int32_t> table_;  // open addressing over pair ids, -1 empty
    std::size_t table_size_ = 0;
    int shift_ = 0;

    // Pairs whose count is their kept count, by count; the doubled symbols whose runs of three
    // or more keep fewer (few) on their own, as they take a place of their own in the list.
    std::vector<std::int32_t> bucket_heads_;
    std::vector<std::int32_t> bucket_sizes_;
    std::int64_t in_buckets_ = 0;
    std::vector<std::int32_t> uneven_;
    std::vector<std::int32_t> stale_;  // pairs whose occurrences changed in this pass
    // The highest bucket, its pairs by symbols in a heap that may hold entries gone stale.
    std::int32_t top_ = 0;
    bool top_heap_stale_ = true;
    std::vector<std::pair<std::uint64_t, std::int32_t>> top_heap_;
    // The bucket pairs with one count that come after one pair of that count in search order,
    // counted as they come and go: the uneven pair last in the list stays so for many passes.
    std::int32_t behind_count_ = 0;
    std::uint64_t behind_key_ = 0;
    std::int64_t behind_ = 0;
    // The buckets the pass looked into last, by symbols, kept sorted as pairs come and go.
    struct Sorted {
        std::int32_t count = 0;
        std::vector<std::pair<std::uint64_t, std::int32_t>> pairs;
    };
    std::array<Sorted, 2> sorted_;

    std::int32_t chosen_ = -1;
};

}  // namespace tessarin
