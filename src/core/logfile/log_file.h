#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include "session/session.h"
#include "version.h"

namespace tessarin {

inline const std::string kVersionLine = std::string("TESSARIN Version ") + kVersion;
inline constexpr const char* kMessageTitle = "TESSARIN";
// The scratch log of the display and editing commands, kept in the program's folder.
inline constexpr const char* kScratchLogName = "$logfile.$$$";

// A log that could not be written; the running command ends with this message.
class LogFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Claims the first free name among `name`, "<base>_1.log", "<base>_2.log", ... by creating the file
// `folder` / (`lead` + name) and answers `lead` + the name claimed. The lead is glued to the name
// with nothing between, so the base of the numbered names stays that of `name`.
std::string ClaimFreeLogName(const std::filesystem::path& folder, const std::string& name,
                             const std::string& lead = "");

// Makes the current log name usable: with keep = 1 an existing file is deleted; otherwise an
// existing name is replaced by the first free "<base>_<n>.log" (n = 1, 2, ...).
void OpenLogFile(Session& session, int keep);

// Appends one line, ended by CR LF, to the current log: open, write, close, so a report is
// complete on disk up to its last line whatever happens later.
void WriteLogLine(Session& session, const std::string& text);

// A main-window line that is also appended to the log.
void PrintLine(Session& session, const std::string& text);

// Shows the current log in a text window.
void ShowLogFile(Session& session);

// The path WriteLogLine appends to.
std::filesystem::path LogFilePath(Session& session);

// Names the log, finds a free name for it and writes the report header: the version line,
// the title with the date and time, the sequence's folder and name, and an empty line.
void StartReportLog(Session& session, const std::string& log_name, const std::string& title);

}  // namespace tessarin
