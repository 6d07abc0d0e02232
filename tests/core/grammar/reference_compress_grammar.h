#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "grammar/grammar.h"
#include "grammar/method.h"

namespace tessarin::testing {

// The compression loop done the slow, obvious way, as an oracle for CompressGrammar: a fresh
// search of every rule in every pass (ReferenceFindWords), the overlapping occurrences dropped
// and each length group reordered in the word list, the choice made by walking that list with
// the ranks in the word headers, and the occurrences replaced one by one from the last. The
// rules are one-based records as the search returns its words. `coded` as for CompressGrammar.
std::vector<Rule> ReferenceCompressGrammar(std::span<const std::int32_t> coded, int alphabet_size, Method method);

}  // namespace tessarin::testing
