#pragma once

#include <deque>
#include <string>
#include <vector>

#include "session/host.h"

namespace tessarin::testing {

// A host for tests: records what the analyses show and answers dialogs from a script.
class ScriptedHost : public Host {
  public:
    std::vector<std::string> lines;     // main-window lines, cleared by ClearMainWindow
    std::vector<std::string> captions;  // progress captions, in order
    std::vector<std::string> messages;  // message box texts
    std::vector<std::string> shown;     // files and text captions shown in text windows
    std::deque<std::string> inputs;     // answers of the next input boxes (default when empty)
    std::deque<bool> answers;           // answers of the next yes/no questions (no when empty)
    int begin_count = 0;
    int end_count = 0;

    void PrintMainLine(const std::string& line) override { lines.push_back(line); }
    void ClearMainWindow() override { lines.clear(); }
    void BeginProgress() override { ++begin_count; }
    void ShowProgress(const std::string& caption) override { captions.push_back(caption); }
    void EndProgress() override { ++end_count; }
    void ShowMessage(const std::string& text, const std::string&) override { messages.push_back(text); }
    bool AskYesNo(const std::string&, const std::string&) override { return Pop(answers, false); }
    std::optional<std::string> AskInput(const std::string&, const std::string&, const std::string& d) override {
        return Pop(inputs, d);
    }
    void ShowFile(const std::filesystem::path& path) override { shown.push_back(path.string()); }
    void ShowText(const std::string& caption, const std::string&) override { shown.push_back(caption); }

  private:
    template <typename T>
    static T Pop(std::deque<T>& queue, T fallback) {
        if (queue.empty()) return fallback;
        T value = queue.front();
        queue.pop_front();
        return value;
    }
};

}  // namespace tessarin::testing
