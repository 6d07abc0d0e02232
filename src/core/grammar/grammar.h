#pragma once

#include <cstdint>
#include <vector>

#include "subwords/word_record.h"

namespace tessarin {

// A context-free grammar as the search sees it: rule r's symbols[0] is its own code (0 for the
// start rule at index 0, K + r for rule r) and symbols[1..L] its right-hand side; terminals are
// 1..K. Rules are WordRecords so that a found word becomes a rule without conversion.
using Grammar = std::vector<WordRecord>;

// Rule-selection methods, by the codes the options form and the callers exchange.
inline constexpr int kNvogram = 0;
inline constexpr int kShortestFirst = 1;
inline constexpr int kLongestFirst = 2;
inline constexpr int kMaximumGain = 3;

// Flags of a compression run.
inline constexpr int kVerifyFlag = 1;         // check at the end that the grammar reproduces the sequence
inline constexpr int kReportFlag = 2;         // passes on the main window, rules in the log, log shown
inline constexpr int kCheckEachPassFlag = 4;  // verify after every pass and stop at the first failure

// K_G: the number of right-hand-side symbols of all rules, the start rule included.
std::int64_t GrammarSize(const Grammar& grammar);

// The rules' right-hand sides as the sequence set that FindWords searches (rule r is sequence r).
SequenceSet RuleSequences(const Grammar& grammar);

// A grammar holding only the start rule, whose right-hand side is `coded` (positions 1..n).
Grammar StartGrammar(std::vector<std::int32_t> coded);

}  // namespace tessarin
