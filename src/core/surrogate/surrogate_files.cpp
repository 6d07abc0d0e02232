#include "surrogate/surrogate_files.h"

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_file_writer.h"
#include "surrogate/surrogate_command.h"

namespace tessarin {
namespace {

constexpr const char* kStatus = "Surrogate Files";

// The text of a coded surrogate; the positions a failed walk left at 0 become character 0.
std::string SurrogateText(const std::vector<std::int32_t>& coded, const Alphabet& alphabet) {
    std::string text;
    text.reserve(coded.size());
    for (std::size_t p = 1; p < coded.size(); ++p)
        text.push_back(coded[p] == 0 ? '\0' : alphabet.Letter(coded[p]));
    return text;
}

}  // namespace

Outcome RunMakeSurrogateFiles(Session& session, const SurrogateParams& params) {
    const double start_time = session.Now();
    if (LoadInputSequence(session, params.input) == 0) return Outcome::kRefused;
    CurrentSequence& sequence = session.sequence();
    PrintSurrogateStart(session, "Compute Surrogate Files  - Press any key to cancel", params);
    StartSurrogateLog(session, params, "_files.log", "Surrogate File Set of ", false);

    sequence.alphabet = BuildAlphabet(sequence.text);
    std::optional<SurrogateShuffler> shuffler =
        MakeShuffler(session, Encode(sequence.alphabet, sequence.text), sequence.AlphabetSize(), params);
    if (!shuffler) {
        session.FinalNote(start_time);
        return Outcome::kRefused;
    }
    const std::string base = FileBaseName(sequence.file_name);
    for (int i = 1; i <= params.count && !session.Busy(kStatus, static_cast<float>(i - 1) / params.count); ++i) {
        const SurrogateDraw draw = DrawSurrogate(session, *shuffler);
        WriteSequenceFile(sequence.folder / (base + "_" + std::to_string(i) + ".txt"),
                          SurrogateText(draw.sequence, sequence.alphabet), SequenceLayout::kLinesOf64);
    }
    session.Busy(kStatus, 1);
    const bool cancelled = session.Aborted();
    session.FinalNote(start_time);
    return cancelled ? Outcome::kCancelled : Outcome::kCompleted;
}

}  // namespace tessarin
