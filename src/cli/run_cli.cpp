#include "cli/run_cli.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>

#include "cli/cli_host.h"
#include "cli/command_options.h"
#include "cli/interrupt.h"
#include "cli/plot_output.h"
#include "logfile/log_file.h"
#include "session/clock.h"
#include "session/program_folder.h"

namespace tessarin {
namespace {

constexpr const char* kProgram = "tessarin-cli";
constexpr const char* kDescription =
    "Analyses of symbolic sequences. Main-window lines go to stdout, messages to stderr;\n"
    "reports are written beside the sequence file, as the desktop program writes them.\n"
    "Exit status: 0 done, 1 cancelled run or refused input, 2 usage error.";

// The rows of the command table that the command line offers.
std::vector<const CommandRow*> CliRows() {
    std::vector<const CommandRow*> rows;
    for (const CommandRow& row : CommandTable()) {
        if (row.cli_name != nullptr) rows.push_back(&row);
    }
    return rows;
}

// The overview that --help prints before any command: every command's usage in one list.
void PrintHelp() {
    std::cout << "Usage: " << kProgram << " [--seed N] [--program-dir DIR] [--threads N] COMMAND [OPTIONS] [FILE]\n\n"
              << kDescription << "\n\nCommands (COMMAND --help for more):\n";
    for (const CommandRow* row : CliRows()) {
        std::cout << "  " << CommandOptions::Usage(*row) << "\n      " << row->cli_summary << '\n';
    }
    std::cout << "\nGlobal options:\n"
              << "  --seed N            seed of the random generator (default: the clock)\n"
              << "  --program-dir DIR   the folder that counts as the program's folder\n"
              << "  --threads N         threads of the parallel runs (default: all cores)\n"
              << "  --help              this text\n\n"
              << "Sequence files (every command that reads one):\n"
              << "  Names ending in .fa, .fasta, .fna, .ffn, .faa, .frn, .fas or .mpfa (optionally .gz) are\n"
              << "  read as FASTA, other names ending in .gz as gzip-compressed text.\n"
              << "  --fasta             read as FASTA whatever the name\n"
              << "  --record ID|N       the record a single-sequence command reads (default: the first);\n"
              << "                      the folder runs take every record of a file that has several\n"
              << "  --upper             fold lower-case (soft-masked) letters to capitals\n\n"
              << "Output files are replaced without asking (the desktop program's save dialog asks).\n";
}

// The words as CLI11 leaves them: global options, the chosen subcommand and its options.
struct Parsed {
    std::string seed_text;
    std::string threads_text;
    std::optional<std::string> program_dir;
    const CommandRow* row = nullptr;
    std::vector<std::unique_ptr<CommandOptions>> options;  // one per subcommand, in CliRows() order
    const CommandOptions* chosen = nullptr;
};

// CLI11's complaints in the words this program has always used.
std::string UsageText(const CLI::ParseError& error, const Parsed& parsed) {
    const std::string usage =
        parsed.row == nullptr ? "" : "usage: " + std::string(kProgram) + " " + CommandOptions::Usage(*parsed.row);
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        const std::string message = error.what();
        const std::string extra = message.substr(message.find_last_of(' ') + 1);
        if (parsed.row == nullptr) return "unknown command '" + extra + "'";
        if (extra.rfind("-", 0) == 0) return std::string(parsed.row->cli_name) + " has no option " + extra;
        return usage;
    }
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
        if (parsed.row == nullptr) return "no command given";
        const std::string message = error.what();
        if (message.find("--") != std::string::npos) return message + "; " + usage;
        return usage;
    }
    if (parsed.row != nullptr && dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) return usage;
    return error.what();
}

long long GlobalInteger(const std::string& option, const std::string& text) {
    try {
        std::size_t used = 0;
        const long long value = std::stoll(text, &used);
        if (used == text.size()) return value;
    } catch (const std::logic_error&) {
    }
    throw UsageError(option + " takes a whole number, not '" + text + "'");
}

std::filesystem::path ProgramFolder(const std::optional<std::string>& program_dir) {
    if (!program_dir) return DefaultProgramFolder();
    if (program_dir->empty()) throw UsageError("--program-dir needs a folder name, not an empty word");
    const std::filesystem::path folder = std::filesystem::absolute(*program_dir);
    if (!std::filesystem::is_directory(folder)) throw UsageError("--program-dir " + *program_dir + " is not a folder");
    return folder.lexically_normal();
}

void Parse(const std::vector<std::string>& words, Parsed& parsed, CLI::App& app) {
    app.require_subcommand(1);
    app.add_option("--seed", parsed.seed_text, "seed of the random generator (default: the clock)");
    app.add_option_function<std::string>(
        "--program-dir", [&parsed](const std::string& folder) { parsed.program_dir = folder; },
        "the folder that counts as the program's folder");
    app.add_option("--threads", parsed.threads_text, "threads of the parallel runs (default: all cores)");
    for (const CommandRow* row : CliRows()) {
        CLI::App* sub = app.add_subcommand(row->cli_name, row->cli_summary);
        sub->fallthrough();  // global options may follow the command
        sub->footer(std::string("Usage: ") + kProgram + " " + CommandOptions::Usage(*row));
        parsed.options.push_back(std::make_unique<CommandOptions>(*sub, *row));
        sub->parse_complete_callback([&parsed, row, options = parsed.options.back().get()] {
            parsed.row = row;
            parsed.chosen = options;
        });
        // Known before the parse completes, so that a complaint can name the command.
        sub->preparse_callback([&parsed, row](std::size_t) { parsed.row = row; });
    }
    std::vector<std::string> reversed(words.rbegin(), words.rend());
    app.parse(reversed);
}

int Run(const std::vector<std::string>& words) {
    Parsed parsed;
    CLI::App app{kDescription, kProgram};
    try {
        Parse(words, parsed, app);
    } catch (const CLI::CallForHelp& help) {
        if (!app.get_subcommands().empty()) return app.exit(help);
        PrintHelp();
        return 0;
    } catch (const CLI::ParseError& error) {
        throw UsageError(UsageText(error, parsed));
    }
    CliHost host;
    Session session(host, ProgramFolder(parsed.program_dir));
    if (!parsed.seed_text.empty()) {
        const long long seed = GlobalInteger("--seed", parsed.seed_text);
        if (seed < 0) throw UsageError("--seed takes a whole number from 0 up");
        session.random().Seed(static_cast<std::uint64_t>(seed));
    } else {
        // Without --seed the clock seeds the generator, as at the desktop program's start.
        session.random().Seed(static_cast<std::uint64_t>(SecondsSinceMidnight() * 1000.0));
    }
    if (!parsed.threads_text.empty()) {
        const long long threads = GlobalInteger("--threads", parsed.threads_text);
        if (threads < 1) throw UsageError("--threads takes a whole number from 1 up");
        session.SetThreads(static_cast<int>(std::min<long long>(threads, 1024)));
    }
    CommandParams params = parsed.chosen->Params();
    session.sequence().reading = parsed.chosen->Reading();
    GenerateState generate_state;
    params.generate_state = &generate_state;
    InstallInterruptHandlers(session);
    const CommandRow& row = *parsed.row;
    const Outcome outcome = RunCommand(session, [&](Session& s) { return row.run(s, params); });
    const std::vector<std::string>& files = parsed.chosen->Files();
    if (outcome == Outcome::kRefused && host.messages_shown() == 0 && !files.empty()) {
        std::cerr << kProgram << ": nothing to analyse in " << files[0] << '\n';
    }
    const std::filesystem::path plot = parsed.chosen->PlotPath();
    if (outcome == Outcome::kCompleted && !plot.empty()) WritePlot(generate_state, plot);
    if (outcome == Outcome::kCompleted && std::string_view(row.cli_name) == "test-sequence") {
        std::cerr << "Wrote " << (session.program_folder() / "test.txt").string() << '\n';
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
    } catch (const RefusedInput& error) {
        std::cerr << error.what() << '\n';
        return 1;
    } catch (const std::exception& error) {
        std::cerr << kProgram << ": " << error.what() << '\n';
        return 1;
    }
}

}  // namespace tessarin
