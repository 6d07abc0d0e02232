#include "grammar/verify_grammar.h"

#include <vector>

namespace tessarin {
namespace {

struct Frame {
    std::size_t rule;
    std::size_t next;  // index of the next right-hand-side symbol to expand
};

}  // namespace

// Expands with an explicit stack, so that a deeply nested grammar cannot overflow the call stack.
bool VerifyGrammar(std::span<const Rule> rules, std::span<const std::int32_t> coded, int alphabet_size) {
    if (rules.empty()) return false;
    const std::size_t length = coded.empty() ? 0 : coded.size() - 1;
    std::size_t produced = 0;
    std::vector<Frame> stack{{0, 0}};
    while (!stack.empty()) {
        Frame& frame = stack.back();
        const std::vector<std::int32_t>& symbols = rules[frame.rule].symbols;
        if (frame.next >= symbols.size()) {
            stack.pop_back();
            continue;
        }
        const std::int32_t symbol = symbols[frame.next++];
        if (symbol >= 1 && symbol <= alphabet_size) {
            if (produced == length || coded[++produced] != symbol) return false;
            continue;
        }
        const std::int64_t rule = std::int64_t{symbol} - alphabet_size;
        // A rule nested deeper than there are rules must contain itself.
        if (rule < 1 || rule >= static_cast<std::int64_t>(rules.size()) || stack.size() >= rules.size()) return false;
        stack.push_back(Frame{static_cast<std::size_t>(rule), 0});
    }
    return produced == length;
}

}  // namespace tessarin
