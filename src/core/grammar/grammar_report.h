#pragma once

#include "grammar/compress_grammar.h"
#include "sequence/alphabet.h"
#include "session/session.h"

namespace tessarin {

// The report of a compression: one line per pass on the main window ("Pass" r ": Rule Length ="
// K_G), then in the log an empty line, the method line, K_G, and the rules one per line.
void ReportGrammar(Session& session, const GrammarResult& result, Method method, const Alphabet& alphabet);

}  // namespace tessarin
