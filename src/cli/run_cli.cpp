#include "cli/run_cli.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <set>

#include "cli/subcommand.h"
#include "session/clock.h"
#include "session/program_folder.h"

namespace tessarin {
namespace {

constexpr const char* kProgram = "tessarin-cli";

void PrintHelp() {
    std::cout << "Usage: " << kProgram << " [--seed N] [--program-dir DIR] COMMAND [OPTIONS] [FILE]\n\n"
              << "Analyses of symbolic sequences. Main-window lines go to stdout, messages to stderr;\n"
              << "reports are written beside the sequence file, as the desktop program writes them.\n\n"
              << "Commands:\n";
    for (const Subcommand& subcommand : Subcommands()) {
        std::cout << "  " << std::left << std::setw(52) << subcommand.usage << subcommand.summary << '\n';
    }
    std::cout << "\nGlobal options:\n"
              << "  --seed N            seed of the random generator (default: the clock)\n"
              << "  --program-dir DIR   the folder that counts as the program's folder\n"
              << "  --help              this text\n\n"
              << "Exit status: 0 done, 1 cancelled run or refused input, 2 usage error.\n";
}

const Subcommand& FindSubcommand(const std::string& name) {
    for (const Subcommand& subcommand : Subcommands()) {
        if (subcommand.name == name) return subcommand;
    }
    if (name.empty()) throw UsageError("no command given");
    throw UsageError("unknown command '" + name + "'");
}

// Checks the subcommand's options and files against what it accepts.
void CheckArguments(const Subcommand& subcommand, const Arguments& arguments) {
    for (const std::string& flag : arguments.flags) {
        if (std::find(subcommand.flags.begin(), subcommand.flags.end(), flag) == subcommand.flags.end()) {
            throw UsageError(subcommand.name + " has no option " + flag);
        }
    }
    for (const auto& [option, value] : arguments.options) {
        const auto& accepted = subcommand.valued_options;
        if (std::find(accepted.begin(), accepted.end(), option) == accepted.end()) {
            throw UsageError(subcommand.name + " has no option " + option);
        }
    }
    if (arguments.files.size() != subcommand.file_count) {
        throw UsageError("usage: " + std::string(kProgram) + " " + subcommand.usage);
    }
}

std::string ProgramFolder(const Arguments& arguments) {
    if (!arguments.program_dir) return DefaultProgramFolder();
    const std::filesystem::path folder = std::filesystem::absolute(*arguments.program_dir);
    if (!std::filesystem::is_directory(folder)) {
        throw UsageError("--program-dir " + *arguments.program_dir + " is not a folder");
    }
    std::string text = folder.lexically_normal().string();
    return text.back() == '/' ? text : text + "/";
}

int Run(const std::vector<std::string>& words) {
    std::set<std::string> valued_options;
    for (const Subcommand& subcommand : Subcommands()) {
        valued_options.insert(subcommand.valued_options.begin(), subcommand.valued_options.end());
    }
    const Arguments arguments = ParseArguments(words, valued_options);
    if (arguments.help) {
        PrintHelp();
        return 0;
    }
    const Subcommand& subcommand = FindSubcommand(arguments.command);
    CheckArguments(subcommand, arguments);

    CliHost host;
    Session session(host, ProgramFolder(arguments));
    // Without --seed the clock seeds the generator, as at the desktop program's start.
    session.random().Seed(arguments.seed ? *arguments.seed
                                         : static_cast<std::uint64_t>(SecondsSinceMidnight() * 1000.0));
    const Outcome outcome = subcommand.run(session, host, arguments);
    if (outcome == Outcome::kRefused && host.messages_shown() == 0 && !arguments.files.empty()) {
        std::cerr << kProgram << ": nothing to analyse in " << arguments.files[0] << '\n';
    }
    return outcome == Outcome::kCompleted ? 0 : 1;
}

}  // namespace

int RunCli(const std::vector<std::string>& words) {
    try {
        return Run(words);
    } catch (const UsageError& error) {
        std::cerr << kProgram << ": " << error.what() << " (try '" << kProgram << " --help')\n";
        return 2;
    }
}

}  // namespace tessarin
