#pragma once

#include "session/session.h"

namespace tessarin {

// Makes the command line behave well in a pipeline and under Ctrl-C: a closed standard output no
// longer kills the run (its report is finished, only the screen lines are lost), and the first
// SIGINT, SIGTERM or SIGHUP cancels the run as a key press cancels it on the desktop, so the report
// ends where a cancelled run ends it; a second one ends the process at once.
void InstallInterruptHandlers(Session& session);

}  // namespace tessarin
