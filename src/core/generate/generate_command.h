#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "generate/gaussian_noise.h"
#include "generate/generate_params.h"
#include "generate/number_series.h"
#include "session/command.h"

namespace tessarin {

// What the generation command keeps beyond one run. The front end holds one for the program's
// lifetime and passes it to every run: the Gaussian spare carries over from run to run, and the
// last series with its partition is left here for the plot window.
struct GenerateState {
    GaussianState gaussian;
    NumberSeries series;            // the last series generated or read
    std::vector<float> thresholds;  // its partition t(0..A); empty when numbers were written
};

// The folder the save dialog starts in: the sequence folder, which becomes the program's folder
// when it is still empty.
std::filesystem::path GenerateOutputFolder(Session& session);

// "Generate a Sequence" (mode 0) and "Discretize a Time Series" (mode 1): generates the series or
// reads params.series_file, then writes it to params.output_path as numbers, or discretised into
// symbols, which also become the current sequence; shows the file written. A cancel, a refused
// setting, an unusable series file or a diverging orbit writes nothing.
Outcome RunGenerateOrDiscretize(Session& session, const GenerateParams& params, GenerateState& state);

}  // namespace tessarin
