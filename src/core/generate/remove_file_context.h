#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "generate/sequence_edit.h"
#include "session/command.h"
#include "session/progress.h"

namespace tessarin {

inline constexpr const char* kRemoveFileContextTitle = "Remove File Context";

// The input box's prompt: "Old Alphabet:", the old alphabet and "Maintain Only the Letters:", two
// line breaks between them. The old alphabet is also the proposed answer.
std::string RemoveFileContextPrompt(const std::string& old_alphabet);

// The characters of `text` that occur in `letters` (compared exactly, case and all), in order.
// Reports "Remove Context" but runs to the end whatever the callback answers.
std::string KeepOnlyLetters(std::string_view text, std::string_view letters, const ProgressFn& progress);

// Asks for the letters to keep on the host; nothing when the box is cancelled or the answer is
// empty. Any letters are accepted, also ones the sequence lacks.
std::optional<std::string> AskKeptLetters(Host& host, const std::string& old_alphabet);

struct RemoveFileContextParams {
    std::filesystem::path input;
    std::string kept_letters;
    std::filesystem::path output_path;
};

// "Remove File Context": reports the summary of the input on the main window and in
// "$logfile.$$$", keeps only the chosen letters, makes the result the current text and writes it
// as raw bytes with no line end; the chosen letters are left in the alphabet from entry 1 on.
Outcome RunRemoveFileContext(Session& session, const RemoveFileContextParams& params);

}  // namespace tessarin
