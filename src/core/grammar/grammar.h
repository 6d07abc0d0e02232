#pragma once

#include <cstdint>
#include <vector>

namespace tessarin {

// One rule of a grammar: its own code (0 for the start rule, K + r for the r-th rule made) and
// its right-hand side, where 1..K are terminals and codes above K name rules.
struct Rule {
    std::int32_t code = 0;
    std::vector<std::int32_t> symbols;
};

}  // namespace tessarin
