#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "grammar/grammar.h"
#include "grammar/method.h"
#include "sequence/alphabet.h"
#include "session/progress.h"

namespace tessarin {

struct CompressOptions {
    // Verify the grammar after every pass and stop at the first pass after which it no longer
    // reproduces the sequence.
    bool check_each_pass = false;
    // Progress captions start with this (the sequence file's base name).
    std::string progress_label;
    // Called after every pass with K_G as it then stands, so a report can show the passes live.
    std::function<void(std::int64_t size)> on_pass;
};

struct GrammarResult {
    bool cancelled = false;       // the progress callback answered that the user cancelled
    std::int64_t complexity = 0;  // K_G: the right-hand-side symbols of all rules
    // Rule 0 is the start rule, then the rules in the order they were made: rule r has code K + r.
    std::vector<Rule> rules;
    std::vector<std::int64_t> pass_sizes;  // K_G after each pass, one entry per rule made
    bool check_failed = false;             // the check after the last pass failed
};

// Builds a grammar greedily: in every pass one repeated word, chosen by `method`, becomes a new
// rule and its occurrences that do not overlap are replaced by the rule's code, until no word
// qualifies. `coded` holds the symbols 1..K at positions 1..n (index 0 is ignored, as in a
// CodedSequence); the r-th rule gets code K + r. The engine works in `coded` itself, so a caller
// that moves it in holds no second copy of a long sequence. A cancelled run returns no rules.
// Keeps no state between calls, so it may run on many threads at once.
GrammarResult CompressGrammar(CodedSequence coded, int alphabet_size, Method method, const CompressOptions& options,
                              const ProgressFn& progress);

}  // namespace tessarin
