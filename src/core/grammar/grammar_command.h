#pragma once

#include "session/command.h"

namespace tessarin {

// Bits of the grammar options word.
inline constexpr int kGrammarOptionsConfirmed = 1;  // the options form was closed with OK
inline constexpr int kGrammarOptionsAllFiles = 2;   // analyse every file of the folder

// What "&Grammatical Complexity" does once its options form has been confirmed: with
// kGrammarOptionsAllFiles the run over the chosen file's folder (verified, no report per file);
// otherwise a file is chosen and its complexity computed with verification and report, ended by
// the time needed or "User Abort". Refused when no sequence is chosen or it is empty.
Outcome RunGrammarComplexity(Session& session, int method, int options);

}  // namespace tessarin
