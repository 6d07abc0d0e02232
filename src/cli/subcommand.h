#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/cli_host.h"
#include "session/command.h"

namespace tessarin {

using SubcommandRun = std::function<Outcome(Session&, CliHost&, const Arguments&)>;

// One analysis of the command line: its name, its usage line and what it accepts.
struct Subcommand {
    std::string name;
    std::string usage;    // e.g. "display FILE"
    std::string summary;  // one line for --help
    std::vector<std::string> flags;
    std::vector<std::string> valued_options;
    std::size_t file_count = 0;
    SubcommandRun run;
};

// A run that answers the file dialog with the command line's FILE, then runs `flow`.
SubcommandRun OnFile(CommandFlow flow);

// Every subcommand, in the order --help lists them.
const std::vector<Subcommand>& Subcommands();

// The subcommands of each subject, gathered by Subcommands().
std::vector<Subcommand> SequenceSubcommands();
std::vector<Subcommand> GrammarSubcommands();
std::vector<Subcommand> SubwordSubcommands();

}  // namespace tessarin
