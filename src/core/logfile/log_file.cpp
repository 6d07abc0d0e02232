#include "logfile/log_file.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "sequence/sequence_file.h"
#include "session/clock.h"

namespace tessarin {
namespace {

constexpr const char* kDefaultLogName = "LogFile.log";

}  // namespace

std::filesystem::path LogFilePath(Session& session) {
    LogTarget& log = session.log();
    if (log.name.empty()) log.name = kDefaultLogName;
    return (log.folder.empty() ? session.program_folder() : log.folder) / log.name;
}

namespace {

// Creates the file only when no file of that name exists, so that two runs started at once in
// one folder never share a log: the loser of the race takes the next number.
bool ClaimFile(const std::filesystem::path& path) {
    std::FILE* file = std::fopen(path.c_str(), "wx");
    if (file == nullptr) return false;
    std::fclose(file);
    return true;
}

}  // namespace

std::string ClaimFreeLogName(const std::filesystem::path& folder, const std::string& name, const std::string& lead) {
    std::string candidate = lead + name;
    for (long long n = 1; !ClaimFile(folder / candidate); ++n) {
        std::error_code error;
        // A folder that cannot be written to would make every number fail.
        if (!std::filesystem::exists(folder / candidate, error)) {
            throw LogFileError("Cannot write the report file " + (folder / candidate).string());
        }
        candidate = lead + FileBaseName(name) + "_" + std::to_string(n) + ".log";
    }
    return candidate;
}

void OpenLogFile(Session& session, int keep) {
    LogTarget& log = session.log();
    const std::filesystem::path& folder = log.folder.empty() ? session.program_folder() : log.folder;
    if (keep == 1) {
        std::error_code error;
        std::filesystem::remove(folder / log.name, error);
        return;
    }
    log.name = ClaimFreeLogName(folder, log.name);
}

void WriteLogLine(Session& session, const std::string& text) {
    const std::filesystem::path path = LogFilePath(session);
    std::ofstream file(path, std::ios::binary | std::ios::app);
    file << text << "\r\n";
    file.close();
    if (!file) throw LogFileError("Cannot write the report file " + path.string());
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
    WriteLogLine(session, "Sequence " + sequence.PathName());
    WriteLogLine(session, "");
}

}  // namespace tessarin
