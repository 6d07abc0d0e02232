#pragma once

#include <string>

#include "session/session.h"

namespace tessarin {

// Rebuilds the alphabet and code table from `text` and returns the alphabet size K (0 for an
// empty text, which leaves the previous alphabet in force). With `report`, prints length,
// alphabet size, alphabet and the symbol entropy H1 on the main window and in the log.
int SequenceSummary(Session& session, const std::string& text, bool report);

// ln K, or ln 2 when K < 2: every entropy of the program is measured in units of the alphabet size.
double LogBase(int alphabet_size);

}  // namespace tessarin
