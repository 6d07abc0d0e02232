#pragma once

#include "session/command.h"

namespace tessarin {

// The "Exceptional Subwords" report of the current sequence, in "<base>_lst.log": the repeated
// words of length 3..max_length observed at least three times as often as a first-order Markov
// chain fitted to the sequence predicts, with their positions when positions_flag is 0. A
// max_length below 1 means the sequence length. Answers whether a report was written (not for a
// sequence of fewer than 2 symbols).
bool FindExceptionalWords(Session& session, int positions_flag, int max_length);

// The menu command: choose a sequence, ask the maximum word length (3 or more), report, show the
// report. positions_flag is the menu item's index: 0 "With Positions", 1 "Without Positions".
Outcome RunExceptionalWords(Session& session, int positions_flag);

}  // namespace tessarin
