#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tessarin {

// A command line that does not fit the usage; exit status 2.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// What the user asked for: the global options, the subcommand and its own options and files.
struct Arguments {
    bool help = false;
    std::optional<std::uint64_t> seed;
    std::optional<std::string> program_dir;
    std::string command;
    std::set<std::string> flags;                 // "--positions"
    std::map<std::string, std::string> options;  // "--method" -> "gain"
    std::vector<std::string> files;

    bool Has(const std::string& flag) const { return flags.count(flag) != 0; }
    std::optional<std::string> Option(const std::string& name) const;
};

// Splits the words after the program name. Global options (--help, --seed N, --program-dir DIR)
// may stand anywhere; every other word starting with "--" goes to the subcommand, and takes the
// next word as its value when it is listed in `valued_options`.
Arguments ParseArguments(const std::vector<std::string>& words, const std::set<std::string>& valued_options);

// A whole number given on the command line, or a UsageError naming the option.
long long ParseInteger(const std::string& option, const std::string& text);

}  // namespace tessarin
