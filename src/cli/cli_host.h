#pragma once

#include <string>

#include "session/host.h"

namespace tessarin {

// The command line's side of the host: main-window lines on stdout, progress on stderr when it
// is a terminal, messages on stderr. Everything a command needs comes from its options, so the
// only question left is a run's own Yes/No, answered at a terminal and No elsewhere.
class CliHost : public Host {
  public:
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
    void ShowFile(const std::filesystem::path& path) override;
    void ShowText(const std::string&, const std::string&) override {}

  private:
    int messages_shown_ = 0;
    bool progress_shown_ = false;
};

}  // namespace tessarin
