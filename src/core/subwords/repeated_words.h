#pragma once

#include <string>

#include "session/command.h"
#include "subwords/subword_command.h"
#include "subwords/subword_group.h"

namespace tessarin {

inline constexpr const char* kRepeatedWordsTitle = "Repeated Subwords";

// The distances between a word's consecutive occurrences (at least two): their number, mean and
// population spread, with count, sum and sum of squares kept in single precision.
struct DistanceFigures {
    float count = 0;
    float mean = 0;
    float spread = 0;
};
DistanceFigures Distances(const Subword& word);

// The distances between a word's consecutive occurrences: "Distance =" and the one distance, or
// from three occurrences on "Average Distance =", the mean, ", ", a tab, "r.m.s. =" and the
// population spread.
std::string DistanceLine(const Subword& word);

// "Repeated Subwords" of params.input: every word of length 1..params.max_length that occurs at
// least twice, with rank and count, and when asked its positions and distances, in "<base>_lst.log";
// its table as params.table asks.
Outcome RunRepeatedWords(Session& session, const SubwordParams& params);

}  // namespace tessarin
