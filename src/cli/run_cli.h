#pragma once

#include <string>
#include <vector>

namespace tessarin {

// The whole command line program: parses `words` (without the program name), runs the
// subcommand and answers the exit status: 0 done, 1 cancelled or refused input, 2 usage error.
int RunCli(const std::vector<std::string>& words);

}  // namespace tessarin
