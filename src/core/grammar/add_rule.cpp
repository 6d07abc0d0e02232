#include "grammar/add_rule.h"

namespace tessarin {

WordRecord ReplaceSubword(const WordRecord& rule, int position, int length, std::span<const std::int32_t> replacement) {
    if (length <= 0) return {};
    WordRecord result;
    result.symbols.reserve(rule.symbols.size() + replacement.size());
    result.symbols.assign(rule.symbols.begin(), rule.symbols.begin() + position);
    result.symbols.insert(result.symbols.end(), replacement.begin(), replacement.end());
    result.symbols.insert(result.symbols.end(), rule.symbols.begin() + position + length, rule.symbols.end());
    return result;
}

void AddRule(Grammar& grammar, const WordRecord& word, std::int32_t code) {
    WordRecord rule;
    rule.symbols = word.symbols;
    rule.symbols[0] = code;
    grammar.push_back(std::move(rule));
    // From the last occurrence to the first, so that the earlier positions stay valid.
    const std::int32_t replacement[] = {code};
    for (int j = word.Count(); j >= 1; --j) {
        WordRecord& target = grammar[static_cast<std::size_t>(word.positions[j].sequence_index)];
        target = ReplaceSubword(target, word.positions[j].position, word.Length(), replacement);
    }
}

}  // namespace tessarin
