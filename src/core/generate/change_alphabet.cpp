#include "generate/change_alphabet.h"

#include <algorithm>
#include <array>

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"

namespace tessarin {

std::string ChangeAlphabetPrompt(const std::string& old_alphabet) {
    return "Old Alphabet:\n\n" + old_alphabet + "\n\nNew Alphabet:";
}

CheckedAnswer<std::string> CheckNewAlphabet(std::string_view old_alphabet, const std::string& answer) {
    if (answer.size() != old_alphabet.size()) {
        return {std::nullopt,
                "Alphabets Must Have Equal Size:" + IntegerText(static_cast<long long>(old_alphabet.size()))};
    }
    return {answer, ""};
}

std::string ChangeAlphabetText(std::string_view text, std::string_view old_alphabet, std::string_view new_alphabet) {
    std::array<char, 256> replacement{};
    for (std::size_t k = 0; k < old_alphabet.size(); ++k)
        replacement[static_cast<unsigned char>(old_alphabet[k])] = new_alphabet[k];
    std::string changed(text);
    for (char& c : changed)
        c = replacement[static_cast<unsigned char>(c)];
    return changed;
}

std::optional<std::string> AskNewAlphabet(Host& host, const std::string& old_alphabet) {
    for (;;) {
        const auto answer = host.AskInput(ChangeAlphabetPrompt(old_alphabet), kChangeAlphabetTitle, old_alphabet);
        if (!answer || answer->empty()) return std::nullopt;
        CheckedAnswer<std::string> checked = CheckNewAlphabet(old_alphabet, *answer);
        if (checked.value) return checked.value;
        host.ShowMessage(checked.refusal, kMessageTitle);
    }
}

Outcome RunChangeAlphabet(Session& session, const ChangeAlphabetParams& params) {
    const double start_time = session.Now();
    if (LoadInputSequence(session, params.input) == 0) return Outcome::kRefused;
    PrintEditStart(session, kChangeAlphabetTitle);
    session.host().PrintMainLine("");
    ReportEditSummary(session);

    CurrentSequence& sequence = session.sequence();
    const std::string old_alphabet(sequence.alphabet.letters.begin(), sequence.alphabet.letters.end());
    const CheckedAnswer<std::string> checked = CheckNewAlphabet(old_alphabet, params.new_alphabet);
    if (!checked.value) throw SequenceEditError(checked.refusal);
    const std::string changed = ChangeAlphabetText(sequence.text, old_alphabet, params.new_alphabet);
    // Deliberately left behind until the next analysis rebuilds the alphabet.
    std::copy(params.new_alphabet.begin(), params.new_alphabet.end(), sequence.alphabet.letters.begin());

    session.host().PrintMainLine("New Alphabet: " + params.new_alphabet);
    session.host().PrintMainLine("");
    WriteEditFile(params.output_path, changed + "\r\n");
    session.host().ShowFile(params.output_path);
    session.FinalNote(start_time);
    return Outcome::kCompleted;
}

}  // namespace tessarin
