#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "grammar/method.h"
#include "logfile/tsv_table.h"
#include "session/command.h"

namespace tessarin {

// K_G of every file in the folder of `chosen` that has its extension (the part of its name after
// the first "."), or of every record of `chosen` when it is a FASTA file of several (see
// FolderSequences), each verified and without a report of its own. Lists each file's value, their
// average and spread on the main window and in "Statistics.log" beside them, and a table of each
// file's number, name, length and K_G as `table` asks. Cancelled when the user aborts, after the
// lines of the files done, and then without the table.
Outcome RunFolderComplexity(Session& session, Method method, const std::filesystem::path& chosen,
                            const TableOutput& table = {});

}  // namespace tessarin
