#pragma once

#include "session/command.h"

namespace tessarin {

// The square root of x, and 0 for negative x, so that rounding cannot make a spread fail.
double SafeSqrt(double x);

// The "Repeating Subwords" report of the current sequence, in "<base>_lst.log": every word of
// length 1..max_length that occurs at least twice, with rank and count, and with positions_flag 0
// also its positions and the mean and r.m.s. spread of the distances between them. A max_length
// of 0 means the sequence length. Answers whether a report was written (not for a sequence of
// fewer than 2 symbols).
bool FindRepeatedWords(Session& session, int positions_flag, int max_length);

// The menu command: choose a sequence, ask the maximum word length, report, show the report.
// positions_flag is the menu item's index: 0 "With Positions", 1 "Without Positions".
Outcome RunRepeatedWords(Session& session, int positions_flag);

}  // namespace tessarin
