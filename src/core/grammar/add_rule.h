#pragma once

#include <cstdint>
#include <span>

#include "grammar/grammar.h"

namespace tessarin {

// A copy of `rule` with symbols position..position + length - 1 replaced by `replacement`; the
// left-hand side (index 0) is kept. A length of 0 or less gives an empty record.
WordRecord ReplaceSubword(const WordRecord& rule, int position, int length, std::span<const std::int32_t> replacement);

// Appends `word` as a new rule with code `code` (its occurrence list emptied) and replaces each
// of the word's occurrences by that code, as the compression loop is written; the compression
// itself does the same on its own linked copy of the rules (RepeatTrie).
void AddRule(Grammar& grammar, const WordRecord& word, std::int32_t code);

}  // namespace tessarin
