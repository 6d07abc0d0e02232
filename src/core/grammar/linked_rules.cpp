#include "grammar/linked_rules.h"

#include <utility>

namespace tessarin {

LinkedRules::LinkedRules(std::span<const Rule> rules) : LinkedRules(rules, LinkedRules()) {}

// Room for the rules to come beside the given ones, so that the first few new rules do not double
// arrays that hold millions of slots.
LinkedRules::LinkedRules(std::span<const Rule> rules, LinkedRules recycled)
    : slots_(std::move(recycled.slots_)),
      codes_(std::move(recycled.codes_)),
      first_slots_(std::move(recycled.first_slots_)) {
    slots_.clear();
    codes_.clear();
    first_slots_.clear();
    unbroken_ = true;
    std::size_t slots = 0;
    for (const Rule& rule : rules)
        slots += rule.symbols.size();
    const std::size_t room = slots + slots / 8 + 1024;
    slots_.reserve(room);
    for (const Rule& rule : rules)
        AppendRule(rule.code, rule.symbols);
}

std::int32_t LinkedRules::Advance(std::int32_t slot, int steps) const {
    if (unbroken_) return slot + steps;
    for (int k = 0; k < steps; ++k)
        slot = slots_[slot].next;
    return slot;
}

void LinkedRules::Replace(std::int32_t slot, int length, std::int32_t code) {
    const std::int32_t after = slots_[Advance(slot, length - 1)].next;
    unbroken_ = unbroken_ && length == 1;
    slots_[slot].symbol = code;
    slots_[slot].next = after;
    if (after >= 0) slots_[after].prev = slot;
}

std::int32_t LinkedRules::AppendRule(std::int32_t code, std::span<const std::int32_t> symbols) {
    const std::int32_t first = SlotCount();
    codes_.push_back(code);
    first_slots_.push_back(first);
    for (std::size_t k = 0; k < symbols.size(); ++k) {
        const std::int32_t slot = first + static_cast<std::int32_t>(k);
        slots_.push_back(Slot{symbols[k], k + 1 < symbols.size() ? slot + 1 : -1, k > 0 ? slot - 1 : -1});
    }
    return first;
}

std::vector<Rule> LinkedRules::ToRules() const {
    std::vector<Rule> rules(codes_.size());
    for (std::size_t r = 0; r < codes_.size(); ++r) {
        rules[r].code = codes_[r];
        const std::int32_t end = r + 1 < first_slots_.size() ? first_slots_[r + 1] : SlotCount();
        if (first_slots_[r] == end) continue;  // an empty rule has no slot of its own
        for (std::int32_t slot = first_slots_[r]; slot >= 0; slot = slots_[slot].next)
            rules[r].symbols.push_back(slots_[slot].symbol);
    }
    return rules;
}

}  // namespace tessarin
