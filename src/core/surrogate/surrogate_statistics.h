#pragma once

#include "session/command.h"
#include "surrogate/surrogate_params.h"

namespace tessarin {

// "Surrogate Statistics": compares the sequence at params.input with params.count surrogates at
// the level params.preserve by grammar complexity (params.method) and, when asked, by subword
// entropies and by the frequencies of its repeated words of length 3..params.max_length, in
// "<base>_set.log" and on the main window. The surrogates are drawn one after another, as the
// file run draws them, and measured on session.threads() threads; the report does not depend on
// the thread count. A table of each surrogate's number, complexity and entropies H1.. goes where
// params.table asks, unless the run was cancelled. Refused when the sequence is shorter than 2
// symbols or its level cannot be shuffled.
Outcome RunSurrogateStatistics(Session& session, const SurrogateParams& params);

}  // namespace tessarin
