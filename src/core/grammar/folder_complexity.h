#pragma once

#include <string>
#include <vector>

#include "session/command.h"

namespace tessarin {

// The files of `folder` that match "*.<extension>" (with an empty extension: the names without
// a "."), in name order so that a run over a folder can be repeated exactly.
std::vector<std::string> FolderFiles(const std::string& folder, const std::string& extension);

// K_G of every file in the chosen file's folder that has its extension (the part after its
// first "."), each run with `flags`. Lists each file's value, their average and spread on the
// main window and in "Statistics.log". Refused when no file is chosen; cancelled when the
// user aborts, after the lines of the files done.
Outcome GrammarComplexityOfFolder(Session& session, int method, int flags);

}  // namespace tessarin
