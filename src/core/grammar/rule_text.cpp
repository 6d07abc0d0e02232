#include "grammar/rule_text.h"

namespace tessarin {

std::string SymbolText(std::int32_t code, const Alphabet& alphabet) {
    if (code >= 1 && code <= alphabet.Size()) return std::string(1, alphabet.Letter(code));
    // Appended piece by piece: GCC 12 at -O3 warns falsely about "[" + text + "]".
    std::string text(1, '[');
    text += std::to_string(code);
    text += ']';
    return text;
}

std::string RuleLine(const Rule& rule, const Alphabet& alphabet) {
    std::string line = SymbolText(rule.code, alphabet);
    line += " -> {";
    for (const std::int32_t symbol : rule.symbols)
        line += SymbolText(symbol, alphabet);
    line += '}';
    return line;
}

}  // namespace tessarin
