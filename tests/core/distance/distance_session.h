#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "session/session.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin::testing {

// Requests the user abort when a caption starting with `caption` is shown for the n-th time.
class AbortingHost : public ScriptedHost {
  public:
    void AbortAt(Session& session, std::string caption, int nth) {
        session_ = &session;
        caption_ = std::move(caption);
        nth_ = nth;
    }
    void ShowProgress(const std::string& text) override {
        ScriptedHost::ShowProgress(text);
        if (session_ != nullptr && text.rfind(caption_, 0) == 0 && --nth_ == 0) session_->RequestAbort();
    }

  private:
    Session* session_ = nullptr;
    std::string caption_;
    int nth_ = 0;
};

// A session whose program folder is "<root>/program/" and whose sequence files lie in "<root>/data/".
// Its clock advances a second per reading, so every progress call shows its caption.
class DistanceSessionTest : public ::testing::Test {
  protected:
    TempFolder root_;
    AbortingHost host_;
    Session session_{host_, root_.Path("program")};

    DistanceSessionTest() {
        session_.SetClock([seconds = 0.0]() mutable { return seconds += 1; });
        std::filesystem::create_directories(Data(""));
    }
    std::string Data(const std::string& name) const { return root_.Path("data") + "/" + name; }
    // Copies a folder of tests/data/distance into the data folder.
    void CopyTestFolder(const std::string& subfolder) const {
        for (const auto& entry : std::filesystem::directory_iterator(Expected(subfolder)))
            std::filesystem::copy_file(entry.path(), Data(entry.path().filename().string()));
    }
    // A file's text with the data folder and the date and time replaced by placeholders.
    std::string Masked(const std::string& path) const {
        std::ifstream file(path, std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        for (std::size_t at; (at = text.find(Data(""))) != std::string::npos;)
            text.replace(at, Data("").size(), "{FOLDER}");
        return std::regex_replace(text, std::regex("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d"), "{DATE}");
    }
    static std::string Expected(const std::string& name) {
        return std::string(TESSARIN_TEST_DATA) + "/distance/" + name;
    }
    static std::vector<std::string> Lines(const std::string& text) {
        std::vector<std::string> lines;
        for (std::size_t at = 0, end; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2)
            lines.push_back(text.substr(at, end - at));
        return lines;
    }
};

}  // namespace tessarin::testing
