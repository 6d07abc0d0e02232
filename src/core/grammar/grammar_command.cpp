#include "grammar/grammar_command.h"

#include "grammar/folder_complexity.h"
#include "grammar/grammar_complexity.h"
#include "sequence/sequence_file.h"

namespace tessarin {

Outcome RunGrammarComplexity(Session& session, const GrammarParams& params) {
    if (params.input.empty()) return Outcome::kRefused;
    if (params.all_files) return RunFolderComplexity(session, params.method, params.input, params.table);
    if (LoadInputSequence(session, params.input) == 0) return Outcome::kRefused;
    const double start_time = session.Now();
    const bool completed = CurrentSequenceComplexity(session, params.method, true).has_value() && !session.Aborted();
    session.FinalNote(start_time);
    return completed ? Outcome::kCompleted : Outcome::kCancelled;
}

}  // namespace tessarin
