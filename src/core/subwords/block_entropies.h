#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "session/command.h"
#include "session/progress.h"

namespace tessarin {

// Block entropies H_0..H_nmax in units of the log base; entry 0 is always 0.
using EntropyTable = std::vector<float>;

// Fills `table` with the block entropy H_n of every length n = 1..nmax of `sequence` (1-based),
// nmax being the smaller of max_n and the longest repeated word, and returns nmax. Entropies are
// divided by `log_base` (LogBase of the alphabet size). With max_n < 1 nothing is done and 0 is
// returned. After a cancel the table is filled from the words found so far.
int ComputeBlockEntropies(std::span<const std::int32_t> sequence, int max_n, double log_base, EntropyTable& table,
                          const std::string& status_name, const ProgressFn& progress);

// The "Subword Entropies" report of the current sequence: one line per block length with H_n,
// H_n/n and h_(n-1) = H_n - H_(n-1), on the main window and in "<base>.log". Answers whether a
// report was written (not for a sequence of fewer than 2 symbols).
bool ReportBlockEntropies(Session& session);

// The menu command: choose a sequence, report its block entropies, show the report.
Outcome RunBlockEntropies(Session& session);

}  // namespace tessarin
