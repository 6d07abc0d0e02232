#include "grammar/grammar_complexity.h"

#include "grammar/compress_grammar.h"
#include "logfile/log_file.h"
#include "sequence/alphabet.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"

namespace tessarin {

float GrammarComplexity(Session& session, int method, int flags) {
    const CurrentSequence& sequence = session.sequence();
    if (sequence.text.empty()) return 0;
    const bool report = (flags & kReportFlag) != 0;
    if (report) {
        session.host().ClearMainWindow();
        session.host().PrintMainLine("Compute Grammar Complexity  - Press any key to cancel");
        session.host().PrintMainLine("Sequence " + sequence.folder + sequence.file_name);
    }
    if (sequence.text.size() < 2) return 0;
    if (report) StartReportLog(session, FileBaseName(sequence.file_name) + ".log", "Compute Grammar Complexity");
    SequenceSummary(session, sequence.text, report);
    Grammar grammar = StartGrammar(EncodeSequence(sequence, sequence.text));
    return CompressGrammar(session, grammar, method, flags);
}

float GrammarComplexityOfText(Session& session, const std::string& text) {
    session.sequence().text = text;
    return GrammarComplexity(session, kNvogram, 0);
}

}  // namespace tessarin
