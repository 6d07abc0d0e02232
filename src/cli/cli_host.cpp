#include "cli/cli_host.h"

#include <unistd.h>

#include <iostream>

namespace tessarin {
namespace {

bool StderrIsTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

}  // namespace

void CliHost::PrintMainLine(const std::string& line) {
    // After a closed standard output (a pipe whose reader has gone) the stream stays failed and
    // the lines are dropped; the run and its report go on.
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
    return default_answer;
}

void CliHost::ShowFile(const std::filesystem::path& path) {
    EndProgress();
    std::cerr << "Report: " << path.string() << '\n';
}

}  // namespace tessarin
