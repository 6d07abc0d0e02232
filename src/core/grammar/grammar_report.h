#pragma once

#include <cstdint>
#include <string>

#include "grammar/compress_grammar.h"
#include "sequence/alphabet.h"
#include "session/session.h"

namespace tessarin {

// The main-window line of pass r, shown as the pass ends: "Pass" r ": Rule Length =" K_G.
std::string PassLine(std::size_t pass, std::int64_t size);

// The report of a finished compression, in the log: an empty line, the method line, K_G, and the
// rules one per line.
void ReportGrammar(Session& session, const GrammarResult& result, Method method, const Alphabet& alphabet);

}  // namespace tessarin
