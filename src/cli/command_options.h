#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "commands/command_table.h"
#include "sequence/sequence_reading.h"

namespace tessarin {

// A command line that does not fit the usage; exit status 2.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// An option's value that the command itself refuses, as its form or input box would; exit status 1.
class RefusedInput : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The options and files of one subcommand, declared on its CLI11 app from the kind of input its
// command takes, and turned into the command's parameters once the words are parsed.
class CommandOptions {
  public:
    CommandOptions(CLI::App& app, const CommandRow& row);

    // "complexity [--folder] [--method nvogram|shortest|longest|gain] FILE"
    static std::string Usage(const CommandRow& row);

    // The files named, for the checks of empty words and the closing messages.
    const std::vector<std::string>& Files() const { return files_; }
    // Where --plot asks the plot of a generated or discretised series to go; empty without it.
    std::filesystem::path PlotPath() const;
    // How the sequence files are to be read (--fasta, --record, --upper).
    SequenceReading Reading() const;
    // Throws UsageError for a value out of its range, RefusedInput for one the command refuses.
    CommandParams Params() const;

  private:
    CLI::Option* Add(CLI::App& app, const std::string& name, std::string& value);

    const CommandRow& row_;
    std::vector<std::string> files_;
    bool positions_ = false;
    bool folder_ = false;
    bool uniform_ = false;
    bool entropy_ = false;
    bool exceptional_ = false;
    bool fasta_ = false;
    bool upper_ = false;
    std::string record_;
    std::string method_, max_length_, count_, preserve_;
    std::string newick_, phylip_, tsv_;
    std::string source_, length_, format_, alphabet_, partition_, logistic_r_, period_, bernoulli_n_, bernoulli_p_;
    std::string out_, to_, letters_, ranges_, plot_;
};

}  // namespace tessarin
