#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "generate/sequence_edit.h"
#include "session/command.h"

namespace tessarin {

inline constexpr const char* kChangeAlphabetTitle = "Change Alphabet";

// The input box's prompt: "Old Alphabet:", the old alphabet and "New Alphabet:", two line breaks
// between them. The old alphabet is also the proposed answer.
std::string ChangeAlphabetPrompt(const std::string& old_alphabet);

// A new alphabet must have as many letters as the old one; repeated letters are allowed. The
// refusal is "Alphabets Must Have Equal Size:" and the size required (" 4"). An empty answer ends
// the command before it is checked.
CheckedAnswer<std::string> CheckNewAlphabet(std::string_view old_alphabet, const std::string& answer);

// The text with the k-th letter of the old alphabet replaced by the k-th of the new one.
std::string ChangeAlphabetText(std::string_view text, std::string_view old_alphabet, std::string_view new_alphabet);

// Asks for the new alphabet on the host until an answer passes CheckNewAlphabet (showing each
// refusal); nothing when the box is cancelled or the answer is empty.
std::optional<std::string> AskNewAlphabet(Host& host, const std::string& old_alphabet);

struct ChangeAlphabetParams {
    std::filesystem::path input;
    std::string new_alphabet;  // as checked by CheckNewAlphabet
    std::filesystem::path output_path;
};

// "Change Alphabet": reports the summary of the input on the main window and in "$logfile.$$$",
// writes the text spelled with the new alphabet as one line and shows it. The current text stays
// as it was, while the alphabet keeps the new letters until the next analysis rebuilds it.
Outcome RunChangeAlphabet(Session& session, const ChangeAlphabetParams& params);

}  // namespace tessarin
