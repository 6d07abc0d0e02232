#include "surrogate/surrogate_command.h"

#include <cmath>

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "session/clock.h"
#include "surrogate/surrogate_options.h"

namespace tessarin {
namespace {

constexpr double kStatusInterval = 0.1;  // seconds between caption updates of the reordering
constexpr const char* kPairVerificationFailed = "Error: Pair Verification Has Failed";

}  // namespace

void PrintSurrogateStart(Session& session, const std::string& title, const SurrogateParams& params) {
    const CurrentSequence& sequence = session.sequence();
    Host& host = session.host();
    host.ClearMainWindow();
    host.PrintMainLine(title);
    host.PrintMainLine("Sequence " + sequence.PathName());
    host.PrintMainLine("Surrogates:" + IntegerText(params.count));
    host.PrintMainLine(PreservationLine(params.preserve));
    host.PrintMainLine("");
}

std::optional<SurrogateShuffler> MakeShuffler(Session& session, const CodedSequence& coded, int alphabet_size,
                                              const SurrogateParams& params) {
    try {
        return SurrogateShuffler(coded, alphabet_size, params.preserve, params.uniform);
    } catch (const SurrogateRefusal& refusal) {
        session.host().ShowMessage(refusal.what(), kMessageTitle);
        return std::nullopt;
    }
}

SurrogateDraw DrawSurrogate(Session& session, SurrogateShuffler& shuffler) {
    Host& host = session.host();
    double last_status = -1;
    const ShuffleCallbacks callbacks{
        [&](const std::string& status) {
            const double now = session.Now();
            if (std::fabs(now - last_status) >= kStatusInterval) {
                last_status = now;
                host.ShowProgress(status);
            }
            return session.Aborted();
        },
        [&](const std::string& question) { return host.AskYesNo(question, kMessageTitle); },
    };
    host.BeginProgress();
    SurrogateDraw draw = shuffler.Next(session.random(), callbacks);
    host.EndProgress();
    if (draw.permute == PermuteOutcome::kGaveUp) host.ShowMessage("No Surrogate Found", kMessageTitle);
    if (draw.permute != PermuteOutcome::kFound) session.RequestAbort();
    if (draw.walk == WalkOutcome::kEdgeListExhausted) host.ShowMessage("Edge List Exhausted", kMessageTitle);
    if (draw.walk == WalkOutcome::kOverlapMismatch) host.ShowMessage("Overlap Mismatch", kMessageTitle);
    if (!draw.pairs_verified) host.ShowMessage(kPairVerificationFailed, kMessageTitle);
    return draw;
}

void StartSurrogateLog(Session& session, const SurrogateParams& params, const std::string& log_suffix,
                       const std::string& title, bool dated) {
    const CurrentSequence& sequence = session.sequence();
    session.log() = LogTarget{FileBaseName(sequence.file_name) + log_suffix, sequence.folder};
    OpenLogFile(session, 0);
    WriteLogLine(session, kVersionLine);
    WriteLogLine(session, title + sequence.PathName());
    WriteLogLine(session, "Surrogates:" + IntegerText(params.count));
    WriteLogLine(session, PreservationLine(params.preserve));
    if (dated) WriteLogLine(session, "Analysis Done on " + DateTimeText());
    WriteLogLine(session, "");
}

}  // namespace tessarin
