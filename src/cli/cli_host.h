#pragma once

#include <deque>
#include <string>

#include "session/host.h"

namespace tessarin {

// The command line's side of the host: main-window lines on stdout, progress on stderr when it
// is a terminal, messages on stderr. Dialogs are answered from what the command line was given.
class CliHost : public Host {
  public:
    // Answers for the next file dialogs and input boxes, in order; when none is left a file
    // dialog is cancelled and an input box takes its default.
    void QueueFile(const std::string& path);
    void QueueInput(const std::string& answer);

    int messages_shown() const { return messages_shown_; }

    void PrintMainLine(const std::string& line) override;
    void ClearMainWindow() override {}
    void BeginProgress() override {}
    void ShowProgress(const std::string& caption) override;
    void EndProgress() override;
    void ShowMessage(const std::string& text, const std::string& title) override;
    bool AskYesNo(const std::string& question, const std::string& title) override;
    std::optional<std::string> AskInput(const std::string& prompt, const std::string& title,
                                        const std::string& default_answer) override;
    std::optional<FileChoice> ChooseFile(FileDialogKind kind, const FileChoice& start,
                                         const std::string& filter) override;
    void ShowFile(const std::string& path) override;
    void ShowText(const std::string&, const std::string&) override {}

  private:
    std::deque<FileChoice> files_;
    std::deque<std::string> inputs_;
    int messages_shown_ = 0;
    bool progress_shown_ = false;
};

}  // namespace tessarin
