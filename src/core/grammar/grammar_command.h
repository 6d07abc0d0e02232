#pragma once

#include <filesystem>

#include "grammar/method.h"
#include "logfile/tsv_table.h"
#include "session/command.h"

namespace tessarin {

struct GrammarParams {
    Method method = Method::kNvogram;
    // Every file in the input's folder with the input's extension, instead of the input alone.
    bool all_files = false;
    std::filesystem::path input;  // the sequence file the user chose
    TableOutput table;            // the folder run's figures as a table, besides its log
};

// "&Grammatical Complexity" once its options and file are chosen: the input's complexity with
// its report, verified and ended by the time needed or "User Abort"; with `all_files` the run
// over its folder (see RunFolderComplexity). Refused when the input is missing or empty.
Outcome RunGrammarComplexity(Session& session, const GrammarParams& params);

}  // namespace tessarin
