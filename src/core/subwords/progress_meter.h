#pragma once

#include <cstdint>
#include <string>

#include "session/progress.h"

namespace tessarin {

// Progress of one step of a long loop. The step counts its work in units (a suffix sorted, a
// word built or written) and the callback hears of it at most once per kReportInterval units, so
// that reporting costs little beside the work even when a step does millions of units. The total
// may be an estimate; the fraction reported stays below 1, which only the step's end reports.
class ProgressMeter {
  public:
    static constexpr std::int64_t kReportInterval = 4096;
    static constexpr double kMostBeforeDone = 0.9999;

    ProgressMeter(const ProgressFn& progress, std::string text, double total_units);

    // Reports the start of the step; answers true when the user has cancelled.
    bool Start() { return Report(); }

    // Counts `units` more units done; answers true when the user has cancelled.
    bool Advance(std::int64_t units) {
        done_ += units;
        return done_ - reported_ >= kReportInterval && Report();
    }

  private:
    bool Report();

    const ProgressFn& progress_;
    std::string text_;
    double total_units_;
    std::int64_t done_ = 0;
    std::int64_t reported_ = 0;
};

}  // namespace tessarin
