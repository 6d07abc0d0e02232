#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <string>

#include "sequence/current_sequence.h"
#include "session/host.h"
#include "session/parallel_for.h"
#include "session/progress.h"
#include "session/random_generator.h"

namespace tessarin {

// The log that WriteLogLine appends to (the program's folder when `folder` is empty).
struct LogTarget {
    std::string name;
    std::filesystem::path folder;
};

// Method code and options word of the grammar options form, kept between runs.
struct GrammarSettings {
    int method = 0;
    int options = 0;
};

// Everything that lives as long as the program: the current sequence, the current log, the
// settings, the random generator and the user abort flag. One object is passed explicitly to
// every command, so tests can make fresh ones.
class Session {
  public:
    Session(Host& host, std::filesystem::path program_folder);

    Host& host() const { return host_; }
    // The program's folder (without a trailing separator).
    const std::filesystem::path& program_folder() const { return program_folder_; }

    CurrentSequence& sequence() { return sequence_; }
    LogTarget& log() { return log_; }
    GrammarSettings& grammar_settings() { return grammar_settings_; }
    RandomGenerator& random() { return random_; }

    // How many threads the parallel parts of a run may use (`--threads`; all cores by default).
    int threads() const { return threads_; }
    void SetThreads(int threads) { threads_ = threads < 1 ? 1 : threads; }

    // The user abort flag: set by a key press (from any thread), cleared by each command.
    bool Aborted() const { return abort_flag_.load() != 0; }
    void RequestAbort() { abort_flag_.store(1); }
    void ClearAbort() { abort_flag_.store(0); }

    // Progress display with cancel: fraction 0 starts it, 1 ends it; in between the caption is
    // updated at most every 0.1 s. Answers whether the user has cancelled.
    bool Busy(const std::string& text, float fraction);
    // Busy as a callback for the computations that know nothing of the session.
    ProgressFn Progress();

    // Ends a command: "User Abort" when cancelled, otherwise the time since `start_time`.
    void FinalNote(double start_time);

    // Seconds since midnight; tests replace the clock.
    double Now() const { return clock_(); }
    void SetClock(std::function<double()> clock) { clock_ = std::move(clock); }

  private:
    Host& host_;
    std::filesystem::path program_folder_;
    CurrentSequence sequence_;
    LogTarget log_;
    GrammarSettings grammar_settings_;
    RandomGenerator random_;
    int threads_ = DefaultThreadCount();
    std::atomic<int> abort_flag_{0};
    double last_progress_update_ = -1;
    std::function<double()> clock_;
};

}  // namespace tessarin
