#pragma once

#include <stdexcept>
#include <string>

#include "session/session.h"

namespace tessarin {

// A sequence file that could not be read; the message names the file.
class SequenceFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The lines of an 8-bit text file joined with nothing between them. A line ends at CR LF, a
// lone CR or a lone LF; every other byte, blanks and tabs included, is a symbol.
std::string ReadTextFile(const std::string& folder, const std::string& name);

// The part of a file name before its first "." (the whole name when it has none).
std::string FileBaseName(const std::string& name);

// Shows the open-file dialog at the sequence folder (the program's folder at first) and returns
// the chosen file's text, or an empty text when the user cancels. Updates folder and file name.
std::string ChooseSequenceFile(Session& session);

// Makes the chosen file the current sequence, shows it in a text window and returns its length
// (0 when nothing was chosen or the file is empty: the command then stops).
int ChooseInputSequence(Session& session);

}  // namespace tessarin
