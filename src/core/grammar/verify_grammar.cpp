#include "grammar/verify_grammar.h"

#include <cstdint>
#include <vector>

#include "sequence/alphabet.h"

namespace tessarin {
namespace {

struct Frame {
    std::size_t rule;
    std::size_t next;  // index of the next right-hand-side symbol to expand
};

bool ExpandsTo(const Grammar& grammar, int alphabet_size, const CodedSequence& coded) {
    const std::size_t length = coded.size() - 1;
    std::size_t produced = 0;
    std::vector<Frame> stack{{0, 1}};
    while (!stack.empty()) {
        Frame& frame = stack.back();
        const std::vector<std::int32_t>& symbols = grammar[frame.rule].symbols;
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
        if (rule < 1 || rule >= static_cast<std::int64_t>(grammar.size()) || stack.size() >= grammar.size()) {
            return false;
        }
        stack.push_back(Frame{static_cast<std::size_t>(rule), 1});
    }
    return produced == length;
}

}  // namespace

bool VerifyGrammar(const Grammar& grammar, const CurrentSequence& sequence, const ProgressFn& progress) {
    progress("Verifying...", 0);
    const bool verified =
        !grammar.empty() && ExpandsTo(grammar, sequence.AlphabetSize(), EncodeSequence(sequence, sequence.text));
    progress("", 1);
    return verified;
}

}  // namespace tessarin
