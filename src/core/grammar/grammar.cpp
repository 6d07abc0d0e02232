#include "grammar/grammar.h"

namespace tessarin {

std::int64_t GrammarSize(const Grammar& grammar) {
    std::int64_t size = 0;
    for (const WordRecord& rule : grammar)
        size += rule.Length();
    return size;
}

SequenceSet RuleSequences(const Grammar& grammar) {
    SequenceSet sequences;
    sequences.reserve(grammar.size());
    for (const WordRecord& rule : grammar)
        sequences.emplace_back(rule.symbols);
    return sequences;
}

Grammar StartGrammar(std::vector<std::int32_t> coded) {
    if (coded.empty()) coded.push_back(0);
    coded[0] = 0;
    Grammar grammar(1);
    grammar[0].symbols = std::move(coded);
    return grammar;
}

}  // namespace tessarin
