#pragma once

#include "session/command.h"

namespace tessarin {

// The "Local Conditional Uncertainties" report of the current sequence, in "<base>_lst.log": for
// every repeated word followed more often than the alphabet has letters, the entropy of its
// successor symbol in units of the log base. Answers whether a report was written (not for a
// sequence of fewer than 2 symbols).
bool ComputeLocalUncertainties(Session& session);

// The menu command: choose a sequence, report its local conditional uncertainties, show the report.
Outcome RunLocalUncertainties(Session& session);

}  // namespace tessarin
