#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "session/session.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"
#include "surrogate/surrogate_params.h"

namespace tessarin::testing {

// A file of the surrogate test data, as bytes.
inline std::string ReadTestData(const std::string& name) {
    std::ifstream file(std::string(TESSARIN_TEST_DATA) + "/surrogate/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// A host that requests the user abort when a caption starting with a chosen text is shown.
class AbortingHost : public ScriptedHost {
  public:
    Session* session = nullptr;
    std::string abort_caption;  // empty: never

    void ShowProgress(const std::string& caption) override {
        ScriptedHost::ShowProgress(caption);
        if (!abort_caption.empty() && caption.rfind(abort_caption, 0) == 0) session->RequestAbort();
    }
};

// A session whose sequence files and reports live in a temporary folder, with a seeded generator
// and a clock that advances one second per reading (so every progress call shows its caption).
class SurrogateSessionTest : public ::testing::Test {
  protected:
    TempFolder folder_;
    AbortingHost host_;
    Session session_{host_, folder_.Folder()};

    SurrogateSessionTest() {
        host_.session = &session_;
        session_.SetClock([seconds = 0.0]() mutable { return seconds += 1; });
        session_.random().Seed(2024);
        session_.SetThreads(1);
    }

    // Copies a sequence of the test data into the folder; answers the run's parameters for it.
    SurrogateParams ParamsFor(const std::string& name, Preserve preserve, int count) const {
        folder_.Write(name, ReadTestData(name));
        SurrogateParams params;
        params.input = folder_.Path(name);
        params.preserve = preserve;
        params.count = count;
        return params;
    }

    // A report with the folder and the date and time replaced as in the expected files.
    std::string Masked(std::string text) const {
        for (std::size_t at; (at = text.find(folder_.Folder())) != std::string::npos;)
            text.replace(at, folder_.Folder().size(), "{FOLDER}");
        return std::regex_replace(text, std::regex("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d"), "{DATE}");
    }

    // The lines of a file, without their CR LF ends.
    std::vector<std::string> Lines(const std::string& name) const {
        const std::string text = folder_.Read(name);
        std::vector<std::string> lines;
        for (std::size_t at = 0, end; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2)
            lines.push_back(text.substr(at, end - at));
        return lines;
    }
};

}  // namespace tessarin::testing
