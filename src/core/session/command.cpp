#include "session/command.h"

#include <exception>

namespace tessarin {

Outcome ExecuteCommand(Session& session, const CommandFlow& flow) {
    try {
        return flow(session);
    } catch (const std::exception& error) {
        session.host().EndProgress();
        session.host().ShowMessage(error.what(), "TESSARIN");
        return Outcome::kRefused;
    }
}

Outcome RunCommand(Session& session, const CommandFlow& flow) {
    session.ClearAbort();
    return ExecuteCommand(session, flow);
}

}  // namespace tessarin
