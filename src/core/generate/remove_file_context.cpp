#include "generate/remove_file_context.h"

#include <algorithm>
#include <array>
#include <vector>

#include "logfile/log_file.h"
#include "sequence/sequence_file.h"

namespace tessarin {
namespace {

constexpr std::size_t kProgressStride = 4096;

}  // namespace

std::string RemoveFileContextPrompt(const std::string& old_alphabet) {
    return "Old Alphabet:\n\n" + old_alphabet + "\n\nMaintain Only the Letters:";
}

std::string KeepOnlyLetters(std::string_view text, std::string_view letters, const ProgressFn& progress) {
    std::array<bool, 256> kept{};
    for (const char c : letters)
        kept[static_cast<unsigned char>(c)] = true;
    std::string result;
    const double n = static_cast<double>(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        // The filter cannot be cancelled: the callback's answer is not consulted.
        if (i % kProgressStride == 0) progress("Remove Context", static_cast<float>(static_cast<double>(i) / n));
        if (kept[static_cast<unsigned char>(text[i])]) result.push_back(text[i]);
    }
    progress("", 1);
    return result;
}

std::optional<std::string> AskKeptLetters(Host& host, const std::string& old_alphabet) {
    const auto answer = host.AskInput(RemoveFileContextPrompt(old_alphabet), kRemoveFileContextTitle, old_alphabet);
    if (!answer || answer->empty()) return std::nullopt;
    return answer;
}

Outcome RunRemoveFileContext(Session& session, const RemoveFileContextParams& params) {
    const double start_time = session.Now();
    if (LoadInputSequence(session, params.input) == 0) return Outcome::kRefused;
    if (params.kept_letters.empty()) throw SequenceEditError("No letters to keep");
    PrintEditStart(session, kRemoveFileContextTitle);
    session.host().PrintMainLine("");
    ReportEditSummary(session);

    CurrentSequence& sequence = session.sequence();
    std::vector<unsigned char>& alphabet = sequence.alphabet.letters;
    if (alphabet.size() < params.kept_letters.size()) alphabet.resize(params.kept_letters.size());
    std::copy(params.kept_letters.begin(), params.kept_letters.end(), alphabet.begin());
    session.host().PrintMainLine("New Alphabet: " + params.kept_letters);
    session.host().PrintMainLine("");

    sequence.text = KeepOnlyLetters(sequence.text, params.kept_letters, session.Progress());
    WriteEditFile(params.output_path, sequence.text);
    session.host().ShowFile(params.output_path);
    session.FinalNote(start_time);
    return Outcome::kCompleted;
}

}  // namespace tessarin
