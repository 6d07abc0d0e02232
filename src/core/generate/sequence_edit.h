#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "session/session.h"

namespace tessarin {

// An answer of an input box after checking: the value it gives, or the message that refuses it
// (the front end shows the message and asks again).
template <typename T>
struct CheckedAnswer {
    std::optional<T> value;
    std::string refusal;
};

// An edited sequence file that could not be written, or edit parameters that do not fit the
// sequence; the command ends with this message.
class SequenceEditError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The name the save dialog of an edit proposes: the base name of the sequence file and "_1.txt".
std::string EditOutputName(const std::string& sequence_file_name);

// The distinct characters of `text` in ascending character code, as the sequence summary numbers
// them: the "old alphabet" the edits show and propose.
std::string AlphabetText(std::string_view text);

// The main-window lines that open an edit: an empty line, the title and the sequence's folder and
// name ("Sequence " ...); the caller ends them with an empty line.
void PrintEditStart(Session& session, const std::string& title);

// Makes the scratch log "$logfile.$$$" in the program's folder current, rewritten from the start,
// and reports the sequence summary on the main window and in it.
void ReportEditSummary(Session& session);

// Writes `bytes` to `path`, replacing any earlier file.
void WriteEditFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace tessarin
