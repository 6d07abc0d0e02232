#pragma once

#include "session/command.h"
#include "surrogate/surrogate_params.h"

namespace tessarin {

// "Make Surrogate Files": writes params.count surrogates of the sequence at params.input, at the
// level params.preserve, as "<base>_<i>.txt" beside it (lines of 64 symbols, replacing files of
// those names), with the header of "<base>_files.log". A user abort stops after the current file.
// Refused when the file is empty or its level cannot be shuffled.
Outcome RunMakeSurrogateFiles(Session& session, const SurrogateParams& params);

}  // namespace tessarin
