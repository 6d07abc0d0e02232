#include "grammar/rule_text.h"

namespace tessarin {

std::string SymbolText(std::int32_t code, const CurrentSequence& sequence) {
    if (code >= 1 && code <= sequence.AlphabetSize()) return std::string(1, static_cast<char>(sequence.alphabet[code]));
    // Appended piece by piece: GCC 12 at -O3 warns falsely about "[" + text + "]".
    std::string text(1, '[');
    text += std::to_string(code);
    text += ']';
    return text;
}

std::string RuleText(const WordRecord& rule, const CurrentSequence& sequence) {
    std::string text;
    for (int k = 1; k <= rule.Length(); ++k)
        text += SymbolText(rule.symbols[k], sequence);
    return text;
}

std::string RuleLine(const WordRecord& rule, const CurrentSequence& sequence) {
    const std::int32_t code = rule.symbols.empty() ? 0 : rule.symbols[0];
    return SymbolText(code, sequence) + " -> {" + RuleText(rule, sequence) + "}";
}

}  // namespace tessarin
