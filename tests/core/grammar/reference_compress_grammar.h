#pragma once

#include "grammar/grammar.h"

namespace tessarin::testing {

// The compression loop written straight from its steps, slow on purpose: a fresh search of the
// whole grammar in every pass, the overlaps pruned from the list, the choice made by walking the
// list with the ranks in the word headers, and the occurrences replaced one by one from the last
// (PruneOverlaps and AddRule).
// The production engine must build the same grammar rule for rule.
Grammar ReferenceCompressGrammar(Grammar grammar, int alphabet_size, int method);

}  // namespace tessarin::testing
