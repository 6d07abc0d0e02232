#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tessarin {

// The only way the analyses reach the user. The desktop program, the command line and the
// tests each implement it, so every analysis runs the same way under all three.
class Host {
  public:
    virtual ~Host() = default;

    // A result line on the main window.
    virtual void PrintMainLine(const std::string& line) = 0;
    virtual void ClearMainWindow() = 0;

    // Progress display: Begin saves the resting caption and shows the busy pointer,
    // Show puts a progress text in the caption, End restores both.
    virtual void BeginProgress() = 0;
    virtual void ShowProgress(const std::string& caption) = 0;
    virtual void EndProgress() = 0;

    virtual void ShowMessage(const std::string& text, const std::string& title) = 0;
    // The questions a run may ask of its own (a long search asking whether to go on) and the
    // questions the front ends ask before a run, asked again while the answer is refused.
    virtual bool AskYesNo(const std::string& question, const std::string& title) = 0;
    // The typed answer, or nothing when the box was cancelled.
    virtual std::optional<std::string> AskInput(const std::string& prompt, const std::string& title,
                                                const std::string& default_answer) = 0;

    // A text window showing a file, or a text held in memory.
    virtual void ShowFile(const std::filesystem::path& path) = 0;
    virtual void ShowText(const std::string& caption, const std::string& text) = 0;
};

}  // namespace tessarin
