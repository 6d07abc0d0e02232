#pragma once

#include "grammar/grammar.h"
#include "session/session.h"

namespace tessarin {

// Builds a grammar greedily: in every pass one repeated word, chosen by `method` (kNvogram ...
// kMaximumGain), becomes a new rule and its kept occurrences are replaced by the rule's code,
// until no word qualifies. `grammar` holds only the start rule on entry; terminals are the
// symbols 1..K of the current alphabet and the r-th rule gets code K + r. Returns K_G, or 0
// when the user cancels (nothing is then reported). `flags` combines kVerifyFlag, kReportFlag
// and kCheckEachPassFlag.
float CompressGrammar(Session& session, Grammar& grammar, int method, int flags);

}  // namespace tessarin
