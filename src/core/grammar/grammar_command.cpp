#include "grammar/grammar_command.h"

#include "grammar/folder_complexity.h"
#include "grammar/grammar.h"
#include "grammar/grammar_complexity.h"
#include "sequence/sequence_file.h"

namespace tessarin {

Outcome RunGrammarComplexity(Session& session, int method, int options) {
    if (options & kGrammarOptionsAllFiles) return GrammarComplexityOfFolder(session, method, kVerifyFlag);
    if (ChooseInputSequence(session) == 0) return Outcome::kRefused;
    const double start_time = session.Now();
    GrammarComplexity(session, method, kVerifyFlag | kReportFlag);
    const bool aborted = session.Aborted();
    session.FinalNote(start_time);
    return aborted ? Outcome::kCancelled : Outcome::kCompleted;
}

}  // namespace tessarin
