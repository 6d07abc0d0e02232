#pragma once

#include <vector>

#include "session/command.h"
#include "subwords/subword_command.h"
#include "subwords/subword_search.h"

namespace tessarin {

// A repeated word whose successor symbol is uncertain to `uncertainty` (units of the log base).
struct WordUncertainty {
    std::size_t index = 0;  // in its group
    float uncertainty = 0;
};

// The words of the current group of `search` (over a sequence of symbols 1..alphabet_size) that
// are followed by a symbol more often than the alphabet has letters, each with the entropy of its
// successor symbol divided by `log_base`, in group order.
std::vector<WordUncertainty> LocalUncertainties(const SubwordSearch& search, const SubwordGroup& group,
                                                int alphabet_size, double log_base);

// "Local Conditional Uncertainties" of params.input, words up to params.max_length, in "<base>_lst.log".
Outcome RunLocalUncertainties(Session& session, const SubwordParams& params);

}  // namespace tessarin
