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

// Runs one command: clears the user abort flag first, and turns a failure inside the command
// (an unreadable file, a report that cannot be written) into a message, leaving the program running.
Outcome RunCommand(Session& session, const CommandFlow& flow);

}  // namespace tessarin
