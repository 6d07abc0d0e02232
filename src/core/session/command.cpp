#include "session/command.h"

#include <exception>
#include <new>

namespace tessarin {

Outcome ExecuteCommand(Session& session, const CommandFlow& flow) {
    try {
        return flow(session);
    } catch (const std::exception& error) {
        // "std::bad_alloc" would tell a user nothing.
        const bool out_of_memory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
        session.host().EndProgress();
        session.host().ShowMessage(out_of_memory ? "Not enough memory to finish the analysis" : error.what(),
                                   "TESSARIN");
        return Outcome::kRefused;
    }
}

Outcome RunCommand(Session& session, const CommandFlow& flow) {
    session.ClearAbort();
    return ExecuteCommand(session, flow);
}

}  // namespace tessarin
