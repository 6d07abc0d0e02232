#pragma once

#include <optional>
#include <vector>

#include "session/command.h"
#include "subwords/subword_command.h"
#include "subwords/subword_search.h"

namespace tessarin {

// The entropy of the symbol after word `index` of the current group of `search` (over a sequence
// of symbols 1..alphabet_size), divided by `log_base`; nothing unless the word is followed by a
// symbol more often than the alphabet has letters. `successors` is scratch space.
std::optional<float> LocalUncertainty(const SubwordSearch& search, std::size_t index, int alphabet_size,
                                      double log_base, std::vector<Successor>& successors);

// "Local Conditional Uncertainties" of params.input, words up to params.max_length, in "<base>_lst.log";
// its table as params.table asks.
Outcome RunLocalUncertainties(Session& session, const SubwordParams& params);

}  // namespace tessarin
