#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "grammar/method.h"
#include "session/command.h"

namespace tessarin {

// The files of `folder` that match "*.<extension>" (with an empty extension: the names without
// a "."), in name order so that a run over a folder can be repeated exactly.
std::vector<std::string> FolderFiles(const std::string& folder, const std::string& extension);

// K_G of every file in the folder of `chosen` that has its extension (the part of its name after
// the first "."), each verified and without a report of its own. Lists each file's value, their
// average and spread on the main window and in "Statistics.log" beside them. Cancelled when the
// user aborts, after the lines of the files done.
Outcome RunFolderComplexity(Session& session, Method method, const std::filesystem::path& chosen);

}  // namespace tessarin
