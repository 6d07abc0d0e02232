#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "logfile/tsv_table.h"
#include "session/command.h"
#include "session/progress.h"
#include "subwords/subword_command.h"

namespace tessarin {

// Block entropies H_0..H_nmax in units of the log base; entry 0 is always 0.
using EntropyTable = std::vector<float>;

struct EntropyParams {
    int max_n = 0;            // the greatest block length
    double log_base = 1;      // LogBase of the alphabet size
    std::string status_name;  // starts the progress texts
};

// The block entropy H_n of every length n = 1..nmax of `sequence` (1-based), nmax being the
// smaller of max_n and the longest repeated word: the table has nmax + 1 entries. With max_n < 1
// the table holds only entry 0. After a cancel it is filled from the lengths searched completely.
EntropyTable ComputeBlockEntropies(std::span<const std::int32_t> sequence, const EntropyParams& params,
                                   const ProgressFn& progress);

// One line per block length with H_n, H_n/n and h_(n-1) = H_n - H_(n-1), on the main window and
// in the log.
void ReportBlockEntropies(Session& session, const EntropyTable& table);

// The same figures as a table (in memory, or written to `file`): n, H_n, H_n/n and h_(n-1), one row
// per block length.
TsvTable BlockEntropyTable(const EntropyTable& table, const std::filesystem::path& file = {});

// "Subword Entropies": the block entropies of params.input, up to params.max_length, in "<base>.log";
// its table as params.table asks, unless the run was cancelled.
Outcome RunBlockEntropies(Session& session, const SubwordParams& params);

}  // namespace tessarin
