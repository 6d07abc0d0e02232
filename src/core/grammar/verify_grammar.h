#pragma once

#include "grammar/grammar.h"
#include "sequence/current_sequence.h"
#include "session/progress.h"

namespace tessarin {

// True when expanding the start rule down to terminals gives exactly the current sequence text,
// coded through its code table. Checks against the text, not against the start rule, so it
// proves a compression of the current sequence only. A code that names no rule, or a rule that
// expands into itself, makes it false. Shows "Verifying..." while it runs.
bool VerifyGrammar(const Grammar& grammar, const CurrentSequence& sequence, const ProgressFn& progress);

}  // namespace tessarin
