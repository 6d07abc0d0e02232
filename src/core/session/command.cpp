#include "session/command.h"

#include <exception>

namespace tessarin {

Outcome RunCommand(Session& session, const CommandFlow& flow) {
    session.ClearAbort();
    try {
        return flow(session);
    } catch (const std::exception& error) {
        session.host().EndProgress();
        session.host().ShowMessage(error.what(), "TESSARIN");
        return Outcome::kRefused;
    }
}

}  // namespace tessarin
