#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "session/session.h"
#include "support/scripted_host.h"
#include "support/temp_folder.h"

namespace tessarin::testing {

// A scripted host whose input boxes can be cancelled and whose progress display requests the user
// abort when a caption starting with a chosen text is shown for the n-th time.
class SubwordHost : public ScriptedHost {
  public:
    std::deque<std::optional<std::string>> box_answers;  // nullopt cancels; empty queue: the proposal
    std::vector<std::string> boxes;                      // "prompt|title|proposal" of each box asked

    void AbortAt(Session& session, std::string caption_start, int occurrence) {
        session_ = &session;
        abort_caption_ = std::move(caption_start);
        abort_occurrence_ = occurrence;
    }

    void ShowProgress(const std::string& caption) override {
        ScriptedHost::ShowProgress(caption);
        if (session_ != nullptr && caption.rfind(abort_caption_, 0) == 0 && --abort_occurrence_ == 0) {
            session_->RequestAbort();
        }
    }

    std::optional<std::string> AskInput(const std::string& prompt, const std::string& title,
                                        const std::string& proposal) override {
        boxes.push_back(prompt + "|" + title + "|" + proposal);
        if (box_answers.empty()) return proposal;
        std::optional<std::string> answer = box_answers.front();
        box_answers.pop_front();
        return answer;
    }

  private:
    Session* session_ = nullptr;
    std::string abort_caption_;
    int abort_occurrence_ = 0;
};

// A session whose sequence files live in a temporary folder. Its clock advances one second per
// reading, so every progress call shows its caption and can be answered with an abort.
class SubwordSessionTest : public ::testing::Test {
  protected:
    TempFolder folder_;
    SubwordHost host_;
    Session session_{host_, folder_.Folder()};

    SubwordSessionTest() {
        session_.SetClock([seconds = 0.0]() mutable { return seconds += 1; });
    }

    // Writes a sequence file and answers the next file dialog with it.
    void ChooseSequence(const std::string& name, const std::string& text) {
        folder_.Write(name, text);
        host_.files.push_back(FileChoice{folder_.Folder(), name});
    }

    // The lines of a report in the folder, without their CR LF ends.
    std::vector<std::string> ReportLines(const std::string& name) const {
        const std::string text = folder_.Read(name);
        std::vector<std::string> lines;
        for (std::size_t at = 0, end; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2)
            lines.push_back(text.substr(at, end - at));
        return lines;
    }

    // The report's lines after its header and sequence summary (the first nine lines).
    std::vector<std::string> ResultLines(const std::string& name) const {
        std::vector<std::string> lines = ReportLines(name);
        return lines.size() <= 9 ? std::vector<std::string>{}
                                 : std::vector<std::string>(lines.begin() + 9, lines.end());
    }
};

}  // namespace tessarin::testing
