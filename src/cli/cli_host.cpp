#include "cli/cli_host.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>

namespace tessarin {
namespace {

bool StderrIsTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

}  // namespace

void CliHost::QueueFile(const std::string& path) {
    // Absolute, as a file dialog answers, so that the report headers match the desktop program's.
    const std::filesystem::path absolute = std::filesystem::absolute(path).lexically_normal();
    std::string folder = absolute.parent_path().string();
    if (folder.empty() || folder.back() != '/') folder += '/';
    files_.push_back(FileChoice{folder, absolute.filename().string()});
}

void CliHost::QueueInput(const std::string& answer) {
    inputs_.push_back(answer);
}

void CliHost::PrintMainLine(const std::string& line) {
    std::cout << line << '\n' << std::flush;
}

void CliHost::ShowProgress(const std::string& caption) {
    if (!StderrIsTerminal()) return;
    std::cerr << "\r\033[K" << caption << std::flush;
    progress_shown_ = true;
}

void CliHost::EndProgress() {
    if (!progress_shown_) return;
    std::cerr << "\r\033[K" << std::flush;
    progress_shown_ = false;
}

void CliHost::ShowMessage(const std::string& text, const std::string&) {
    EndProgress();
    std::cerr << text << '\n';
    ++messages_shown_;
}

bool CliHost::AskYesNo(const std::string& question, const std::string&) {
    EndProgress();
    std::cerr << question << " [y/N] " << std::flush;
    std::string answer;
    if (isatty(STDIN_FILENO) == 1 && std::getline(std::cin, answer)) {
        return !answer.empty() && (answer[0] == 'y' || answer[0] == 'Y');
    }
    std::cerr << "N\n";
    return false;
}

std::optional<std::string> CliHost::AskInput(const std::string&, const std::string&,
                                             const std::string& default_answer) {
    if (inputs_.empty()) return default_answer;
    std::string answer = inputs_.front();
    inputs_.pop_front();
    return answer;
}

std::optional<FileChoice> CliHost::ChooseFile(FileDialogKind, const FileChoice&, const std::string&) {
    if (files_.empty()) return std::nullopt;
    FileChoice choice = files_.front();
    files_.pop_front();
    return choice;
}

void CliHost::ShowFile(const std::string& path) {
    EndProgress();
    std::cerr << "Report: " << path << '\n';
}

}  // namespace tessarin
