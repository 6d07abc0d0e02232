#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "common/huge_pages.h"
#include "grammar/grammar.h"

namespace tessarin {

// The right-hand sides of a grammar's rules as doubly linked slots, so that replacing a word by a
// rule's code changes nothing but the slots involved and every other slot keeps its number.
// Slots are numbered in the order (rule, position): a rule's slots are consecutive numbers and
// a new rule's come after all others, so comparing numbers compares places in the grammar.
class LinkedRules {
  public:
    LinkedRules() = default;
    explicit LinkedRules(std::span<const Rule> rules);
    // `recycled`: rules let go of, whose room is written over.
    LinkedRules(std::span<const Rule> rules, LinkedRules recycled);

    std::int32_t SlotCount() const { return static_cast<std::int32_t>(slots_.size()); }
    std::int32_t Symbol(std::int32_t slot) const { return slots_[slot].symbol; }
    // The neighbouring slots in the same rule, -1 past either end.
    std::int32_t Next(std::int32_t slot) const { return slots_[slot].next; }
    std::int32_t Prev(std::int32_t slot) const { return slots_[slot].prev; }
    // Asks the memory for the slot, some reads before it is needed.
    void Prefetch(std::int32_t slot) const { __builtin_prefetch(&slots_[slot]); }
    // The slot `steps` places after `slot` in its rule; the rule must be long enough.
    std::int32_t Advance(std::int32_t slot, int steps) const;

    // Makes `slot` hold `code` in place of the `length` symbols that start there.
    void Replace(std::int32_t slot, int length, std::int32_t code);
    // Appends a rule with the given code and right-hand side; answers its first slot.
    std::int32_t AppendRule(std::int32_t code, std::span<const std::int32_t> symbols);

    std::vector<Rule> ToRules() const;

  private:
    // A slot's symbol and links side by side: reading a symbol after its neighbour's link, as
    // every walk through the text does, then costs one trip to memory instead of two.
    struct Slot {
        std::int32_t symbol;
        std::int32_t next;
        std::int32_t prev;
    };

    HugePageVector<Slot> slots_;
    std::vector<std::int32_t> codes_;        // per rule
    std::vector<std::int32_t> first_slots_;  // per rule
    // No slot has gone since the rules were laid out: a slot some places on is then that many
    // numbers on, which spares walking the links through a long word.
    bool unbroken_ = true;
};

}  // namespace tessarin
