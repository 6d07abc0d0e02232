#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "generate/generate_params.h"
#include "generate/number_series.h"
#include "sequence/current_sequence.h"
#include "session/progress.h"

namespace tessarin {

// A series turned into symbols: the thresholds t(0..A) of the partition, the letters of the
// symbols (symbol k at [k - 1]) and the text, one letter per value.
struct Discretisation {
    std::vector<float> thresholds;
    std::string letters;
    std::string text;
};

// The thresholds t(0..A) of a partition: Equal Frequency takes values of the sorted series
// ("Sorting.."), Equal Intervals divides minimum..maximum evenly, Multiples of R.M.S. steps by the
// deviation around the mean. Nothing when the user cancels the sort.
std::optional<std::vector<float>> PartitionThresholds(std::span<const float> values, const SeriesStatistics& statistics,
                                                      int alphabet_size, Partition partition,
                                                      const ProgressFn& progress);

// Turns the series into alphabet_size (1..223) symbols: value v gets the smallest k with
// v <= t(k), or A above t(A); every value gets symbol 1 when t(A) = t(0). Nothing when the user
// cancels ("Sorting..", "Partitioning...").
std::optional<Discretisation> DiscretiseSeries(std::span<const float> values, const SeriesStatistics& statistics,
                                               int alphabet_size, Partition partition, const ProgressFn& progress);

// Makes the discretised text the current sequence text, with its letters as the alphabet and in
// the code table (letter k gives symbol k).
void SetDiscretisedSequence(CurrentSequence& sequence, const Discretisation& discretisation);

}  // namespace tessarin
