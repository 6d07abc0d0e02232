#include "grammar/grammar_complexity.h"

#include <new>
#include <stdexcept>

#include "grammar/compress_grammar.h"
#include "grammar/grammar_report.h"
#include "grammar/verify_grammar.h"
#include "logfile/log_file.h"
#include "sequence/alphabet.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"

namespace tessarin {
namespace {

constexpr const char* kTitle = "Compute Grammar Complexity";
constexpr const char* kVerifyFailedMessage = "Error: Rules do not construct initial sequence";

}  // namespace

std::optional<float> GrammarComplexityOfText(std::string_view text, Method method, const ProgressFn& progress) {
    if (text.size() < 2) return 0.0F;
    const Alphabet alphabet = BuildAlphabet(text);
    const GrammarResult result =
        CompressGrammar(Encode(alphabet, text), alphabet.Size(), method, CompressOptions{}, progress);
    if (result.cancelled) return std::nullopt;
    return static_cast<float>(result.complexity);
}

std::optional<float> CurrentSequenceComplexity(Session& session, Method method, bool report) {
    CurrentSequence& sequence = session.sequence();
    if (report) {
        session.host().ClearMainWindow();
        session.host().PrintMainLine(std::string(kTitle) + "  - Press any key to cancel");
        session.host().PrintMainLine("Sequence " + sequence.PathName());
    }
    if (sequence.text.size() < 2) return 0.0F;
    if (report) StartReportLog(session, FileBaseName(sequence.file_name) + ".log", kTitle);
    const SequenceSummary summary = SummarizeSequence(sequence.text);
    sequence.alphabet = summary.alphabet;
    if (report) ReportSequenceSummary(session, summary);

    const ProgressFn progress = session.Progress();
    CompressOptions options;
    options.progress_label = FileBaseName(sequence.file_name);
    std::size_t passes = 0;
    if (report) options.on_pass = [&](std::int64_t size) { session.host().PrintMainLine(PassLine(++passes, size)); };
    // The sequence is coded afresh for the check, so no second copy of it is held during the run.
    GrammarResult result;
    try {
        result = CompressGrammar(Encode(sequence.alphabet, sequence.text), sequence.AlphabetSize(), method, options,
                                 progress);
    } catch (const std::bad_alloc&) {
        throw std::runtime_error(std::string(kTitle) + ": Not enough memory for the grammar of a sequence of " +
                                 std::to_string(sequence.text.size()) + " symbols");
    }
    if (result.cancelled) return std::nullopt;
    if (report) ReportGrammar(session, result, method, sequence.alphabet);
    progress("Verifying...", 0);
    const bool verified =
        VerifyGrammar(result.rules, Encode(sequence.alphabet, sequence.text), sequence.AlphabetSize());
    progress("", 1);
    if (!verified) session.host().ShowMessage(kVerifyFailedMessage, kMessageTitle);
    if (report) ShowLogFile(session);
    return static_cast<float>(result.complexity);
}

}  // namespace tessarin
