#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "grammar/method.h"
#include "session/progress.h"
#include "surrogate/occurrence_counter.h"

namespace tessarin {

// What the ensemble run measures on the original and on every surrogate.
struct MeasureParams {
    int alphabet_size = 0;
    Method method = Method::kNvogram;
    bool entropy = false;
    int max_length = 0;                        // longest block of the entropies
    const OccurrenceCounter* words = nullptr;  // the words whose occurrences are counted, if any
};

// The measures of one surrogate.
struct SurrogateMeasures {
    std::vector<float> entropies;           // H(0..max_length) when entropies are wanted
    std::vector<std::int32_t> word_counts;  // one count per word of MeasureParams::words
    std::optional<float> complexity;        // nothing when the user cancelled
};

// H(0..max_length) of `coded` (positions 1..L) in units of `log_base`: the block entropies, and
// for each length beyond the longest repeated word (where every word of that length occurs once)
// log(L - l + 1) / log_base. Progress texts start with `name`.
std::vector<float> EntropyProfile(std::span<const std::int32_t> coded, int max_length, double log_base,
                                  const std::string& name, const ProgressFn& progress);

// The grammar complexity of `coded`, with neither a verification nor a check after each pass;
// nothing when the user cancelled.
std::optional<float> SequenceComplexity(std::span<const std::int32_t> coded, const MeasureParams& params,
                                        const std::string& name, const ProgressFn& progress);

// Entropies, word counts and complexity of one surrogate, in that order. Keeps no state, so the
// surrogates of a run may be measured on many threads at once.
SurrogateMeasures MeasureSurrogate(std::span<const std::int32_t> coded, const MeasureParams& params,
                                   const std::string& name, const ProgressFn& progress);

}  // namespace tessarin
