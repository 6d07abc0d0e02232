#include "sequence/display_sequence.h"

#include "logfile/log_file.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"

namespace tessarin {

Outcome DisplaySequenceFile(Session& session, const std::filesystem::path& input) {
    if (LoadInputSequence(session, input) == 0) return Outcome::kRefused;
    session.log() = LogTarget{kScratchLogName, session.program_folder()};
    OpenLogFile(session, 1);
    Host& host = session.host();
    host.ClearMainWindow();
    host.PrintMainLine("Display Sequence File");
    host.PrintMainLine("Sequence " + session.sequence().Name());
    SetAlphabetAndReport(session);
    return Outcome::kCompleted;
}

}  // namespace tessarin
