#include "grammar/linked_rules.h"

namespace tessarin {

LinkedRules::LinkedRules(const Grammar& grammar) {
    for (const WordRecord& rule : grammar) {
        AppendRule(std::span<const std::int32_t>(rule.symbols).subspan(rule.symbols.empty() ? 0 : 1));
    }
}

std::int32_t LinkedRules::Advance(std::int32_t slot, int steps) const {
    for (int k = 0; k < steps; ++k)
        slot = next_[slot];
    return slot;
}

void LinkedRules::Replace(std::int32_t slot, int length, std::int32_t code) {
    const std::int32_t after = next_[Advance(slot, length - 1)];
    symbols_[slot] = code;
    next_[slot] = after;
    if (after >= 0) prev_[after] = slot;
}

std::int32_t LinkedRules::AppendRule(std::span<const std::int32_t> symbols) {
    const std::int32_t first = SlotCount();
    first_slots_.push_back(first);
    for (std::size_t k = 0; k < symbols.size(); ++k) {
        const std::int32_t slot = first + static_cast<std::int32_t>(k);
        symbols_.push_back(symbols[k]);
        next_.push_back(k + 1 < symbols.size() ? slot + 1 : -1);
        prev_.push_back(k > 0 ? slot - 1 : -1);
    }
    return first;
}

Grammar LinkedRules::ToGrammar(int alphabet_size) const {
    Grammar grammar(first_slots_.size());
    for (std::size_t r = 0; r < first_slots_.size(); ++r) {
        std::vector<std::int32_t>& symbols = grammar[r].symbols;
        symbols.push_back(r == 0 ? 0 : alphabet_size + static_cast<std::int32_t>(r));
        const bool empty =
            r + 1 < first_slots_.size() ? first_slots_[r + 1] == first_slots_[r] : first_slots_[r] == SlotCount();
        if (empty) continue;
        for (std::int32_t slot = first_slots_[r]; slot >= 0; slot = next_[slot])
            symbols.push_back(symbols_[slot]);
    }
    return grammar;
}

}  // namespace tessarin
