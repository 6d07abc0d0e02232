#include "grammar/joined_rules.h"

namespace tessarin {

JoinedRules JoinRules(std::span<const Rule> rules) {
    JoinedRules joined;
    std::int32_t largest = 0;
    std::size_t symbols = 0;
    for (const Rule& rule : rules) {
        for (const std::int32_t symbol : rule.symbols)
            largest = std::max(largest, symbol);
        symbols += rule.symbols.size() + 1;
    }
    std::int32_t separator = largest;
    joined.symbols.reserve(symbols);
    for (const Rule& rule : rules) {
        if (&rule != &rules.front()) {
            joined.separators.push_back(static_cast<std::int32_t>(joined.symbols.size()));
            joined.symbols.push_back(++separator);
        }
        joined.symbols.insert(joined.symbols.end(), rule.symbols.begin(), rule.symbols.end());
    }
    joined.length = static_cast<std::int32_t>(joined.symbols.size());
    joined.alphabet_size = separator + 1;
    return joined;
}

}  // namespace tessarin
