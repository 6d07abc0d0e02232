#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "subwords/word_record.h"

namespace tessarin::testing {

// A grammar rule from its symbols: index 0 its own code, then its right-hand side.
inline WordRecord Rule(std::vector<std::int32_t> symbols) {
    WordRecord rule;
    rule.symbols = std::move(symbols);
    return rule;
}

}  // namespace tessarin::testing
