#pragma once

#include <functional>

#include "session/session.h"

namespace tessarin {

// How a command ended: the command line turns this into its exit status.
enum class Outcome {
    kCompleted,
    kCancelled,  // the user aborted the run
    kRefused,    // no input was chosen, or the input or a setting was refused
};

using CommandFlow = std::function<Outcome(Session&)>;

// Runs one command and turns a failure inside it (an unreadable file, a report that cannot be
// written) into a message, leaving the program running. The caller has cleared the abort flag.
Outcome ExecuteCommand(Session& session, const CommandFlow& flow);

// Clears the user abort flag, then executes the command.
Outcome RunCommand(Session& session, const CommandFlow& flow);

}  // namespace tessarin
