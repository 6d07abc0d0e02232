#pragma once

#include <optional>
#include <string>

#include "sequence/alphabet.h"
#include "session/session.h"
#include "surrogate/surrogate_params.h"
#include "surrogate/surrogate_shuffler.h"

namespace tessarin {

// Clears the main window and prints the start of a surrogate run: `title`, the sequence, the
// surrogate count, the preservation line and an empty line.
void PrintSurrogateStart(Session& session, const std::string& title, const SurrogateParams& params);

// Names the run's log after the sequence (base name + `log_suffix`) and writes its header: the
// version, `title` with the sequence, the count, the preservation line, with `dated` the date and
// time, and an empty line.
void StartSurrogateLog(Session& session, const SurrogateParams& params, const std::string& log_suffix,
                       const std::string& title, bool dated);

// The shuffler of a run, or nothing after showing why the level cannot be shuffled.
std::optional<SurrogateShuffler> MakeShuffler(Session& session, const CodedSequence& coded, int alphabet_size,
                                              const SurrogateParams& params);

// The next surrogate of the run, with its messages shown: "No Surrogate Found" (which, like a No
// to going on, sets the user abort flag), "Edge List Exhausted", "Overlap Mismatch" and a failed
// pair verification. The reordering shows its round count in the caption.
SurrogateDraw DrawSurrogate(Session& session, SurrogateShuffler& shuffler);

}  // namespace tessarin
