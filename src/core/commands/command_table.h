#pragma once

#include <span>

#include "commands/command_params.h"
#include "session/command.h"

namespace tessarin {

// What a front end must gather before a command runs; it also decides the command line's options.
enum class CommandInput {
    kDesktopOnly,          // an item the desktop program handles itself (window image, help, windows)
    kNothing,              // runs without input
    kSequenceFile,         // one sequence file
    kSubwordFile,          // one sequence file; the command line may bound the word length
    kRepeatedWords,        // a sequence file and a maximum word length, with or without positions
    kExceptionalWords,     // the same, the length at least 3
    kGrammar,              // the grammar options form, then a sequence file
    kSurrogateFiles,       // the surrogate options form without its check boxes, then a sequence file
    kSurrogateStatistics,  // the surrogate options form with its check boxes, then a sequence file
    kTwoFiles,             // two sequence files, one after the other
    kFolder,               // a file naming the folder and the extension of the files to compare
    kGenerate,             // the generation options form, then the output file
    kDiscretize,           // a number-series file, the generation options form, then the output file
    kChangeAlphabet,       // a sequence file, the new alphabet, then the output file
    kKeepLetters,          // a sequence file, the letters to keep, then the output file
    kFractionate,          // a sequence file, the position ranges, then the output file
};

using CommandRun = Outcome (*)(Session&, const CommandParams&);

// One menu item and, where it has one, its command-line subcommand.
struct CommandRow {
    const char* object_name;       // the menu item's name ("Calc_PartialEntropies")
    const char* caption;           // its caption, with the accelerator ("Subword &Entropies")
    const char* menu;              // the object name of the menu that holds it
    const char* separator_before;  // the object name of a separator line above it, or nullptr
    const char* positions_pair;    // for a submenu of "With &Positions" / "&Without Positions": its items' name
    const char* cli_name;          // the subcommand, or nullptr for an item of the desktop alone
    const char* cli_summary;       // one line for --help
    CommandInput input;
    CommandRun run;  // nullptr for kDesktopOnly
};

// A menu of the menu bar.
struct MenuRow {
    const char* object_name;
    const char* caption;
};

// The menus, left to right.
std::span<const MenuRow> MenuTable();

// Every command in menu order; adding a command is one row here plus its own files.
std::span<const CommandRow> CommandTable();

}  // namespace tessarin
