#pragma once

#include <optional>
#include <stdexcept>

#include "generate/gaussian_noise.h"
#include "generate/generate_params.h"
#include "generate/number_series.h"
#include "session/progress.h"
#include "session/random_generator.h"

namespace tessarin {

// A series that left the range of single-precision numbers (a diverging orbit); the run writes
// nothing.
class SeriesOverflowError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The series of params.length values of the chosen source, with its statistics. The map states
// are drawn from `random` at the start of each run; the Gaussian spare carries over in
// `gaussian`. Nothing when the user cancels. Throws SeriesOverflowError when a value overflows.
std::optional<NumberSeries> GenerateSeries(const GenerateParams& params, RandomGenerator& random,
                                           GaussianState& gaussian, const ProgressFn& progress);

}  // namespace tessarin
