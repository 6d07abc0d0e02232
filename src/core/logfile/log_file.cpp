#include "logfile/log_file.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "common/trim.h"
#include "sequence/sequence_file.h"
#include "session/clock.h"

namespace tessarin {
namespace {

constexpr const char* kDefaultLogName = "LogFile.log";

}  // namespace

std::string JoinPath(const std::string& folder, const std::string& name) {
    if (folder.empty() || folder.back() == '/') return folder + name;
    return folder + "/" + name;
}

std::string LogFilePath(Session& session) {
    LogTarget& log = session.log();
    if (log.name.empty()) log.name = kDefaultLogName;
    const std::string& folder = log.folder.empty() ? session.program_folder() : log.folder;
    return folder + log.name;
}

namespace {

// Creates the file only when no file of that name exists, so that two runs started at once in
// one folder never share a log: the loser of the race takes the next number.
bool ClaimFile(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "wx");
    if (file == nullptr) return false;
    std::fclose(file);
    return true;
}

}  // namespace

std::string ClaimFreeLogName(const std::string& prefix, const std::string& name) {
    std::string candidate = name;
    for (long long n = 1; !ClaimFile(prefix + candidate); ++n) {
        std::error_code error;
        // A folder that cannot be written to would make every number fail.
        if (!std::filesystem::exists(prefix + candidate, error)) {
            throw LogFileError("Cannot write the report file " + prefix + candidate);
        }
        candidate = FileBaseName(name) + "_" + std::to_string(n) + ".log";
    }
    return candidate;
}

void OpenLogFile(Session& session, int keep) {
    LogTarget& log = session.log();
    const std::string& folder = log.folder.empty() ? session.program_folder() : log.folder;
    if (keep == 1) {
        DeleteFile(folder, log.name);
        return;
    }
    log.name = ClaimFreeLogName(JoinPath(folder, ""), log.name);
}

void WriteLogLine(Session& session, const std::string& text) {
    const std::string path = LogFilePath(session);
    std::ofstream file(path, std::ios::binary | std::ios::app);
    file << text << "\r\n";
    file.close();
    if (!file) throw LogFileError("Cannot write the report file " + path);
}

void PrintLine(Session& session, const std::string& text) {
    session.host().PrintMainLine(text);
    WriteLogLine(session, text);
}

void ShowLogFile(Session& session) {
    session.host().ShowFile(LogFilePath(session));
}

void StartReportLog(Session& session, const std::string& log_name, const std::string& title) {
    const CurrentSequence& sequence = session.sequence();
    session.log() = LogTarget{log_name, sequence.folder};
    OpenLogFile(session, 0);
    WriteLogLine(session, kVersionLine);
    WriteLogLine(session, title + "  - " + DateTimeText());
    WriteLogLine(session, "Sequence " + sequence.folder + sequence.file_name);
    WriteLogLine(session, "");
}

bool FileExists(const std::string& folder, const std::string& name) {
    const std::string trimmed_name = Trim(name);
    if (trimmed_name.empty()) return false;
    const std::string trimmed_folder = Trim(folder);
    std::error_code error;
    return std::filesystem::is_regular_file(JoinPath(trimmed_folder, trimmed_name), error);
}

void DeleteFile(const std::string& folder, const std::string& name) {
    std::error_code error;
    std::filesystem::remove(JoinPath(folder, name), error);
}

}  // namespace tessarin
