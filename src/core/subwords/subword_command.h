#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "logfile/tsv_table.h"
#include "session/command.h"
#include "subwords/subword_search.h"

namespace tessarin {

// What the subword commands take: the sequence file, the greatest word length to search (1 or
// more; kNoLengthLimit when the user sets none), and whether word lists give each word's positions.
struct SubwordParams {
    std::filesystem::path input;
    int max_length = kNoLengthLimit;
    bool positions = false;
    TableOutput table;  // the report's figures as a table, besides the log
};

// Memory ran out during a subword command; the message names the command.
class SubwordMemoryError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The frame of the subword commands: makes `input` the current sequence, notes the start time,
// runs `report` (which answers false when the sequence is too short to analyse), shows the
// report and ends with the final note. kCancelled when the user aborted, kRefused without input
// or report. When memory runs out anywhere in the report, the command ends with a
// SubwordMemoryError "<title>: Not enough memory ..."; the lines written so far stay in the log.
Outcome RunSubwordCommand(Session& session, const std::filesystem::path& input, const std::string& title,
                          const std::function<bool()>& report);

// The question the front ends ask before the word-list commands, proposing the sequence length.
inline constexpr const char* kMaximumLengthPrompt = "Specify Maximum Word Length";

// The answer to the maximum word length question, read as a number rounded to a whole one.
struct MaximumLengthAnswer {
    std::optional<int> max_length;  // the length to run with; nothing: the command does not run
    std::string refusal;            // the message that refuses the answer, empty when there is none
};

// An empty answer, or one below 1, asks for no run; one that is not a number is refused with
// "Length must be a number", one below `shortest_length` with "Length must be > " and the length
// below it. Any length beyond the longest possible word means kNoLengthLimit.
MaximumLengthAnswer ParseMaximumWordLength(std::string_view answer, int shortest_length);

}  // namespace tessarin
