#pragma once

#include <filesystem>
#include <string>

#include "session/command.h"

namespace tessarin {

// One of the two sequences compared: its text and where it came from.
struct DistanceOperand {
    std::string text;
    std::filesystem::path folder;
    std::string name;
};

struct DistanceParams {
    std::filesystem::path first, second;
};

// Compares x and y by the complexities K(x), K(y), K(xy) and K(yx): the conditional
// complexities, the algorithmic distance D = K(x|y) + K(y|x), the relative distance
// d = 2 D / (K(xy) + K(yx)) and the similarity 100 (1 - d) %. Reports them on the main window
// and in "distance.log" beside the program's folder, and shows the log, cut short by a cancel
// or not. The abort flag is looked at after K(x), after K(y) and at the end only. Leaves the
// current sequence file name set to y's and the current text set to the last text measured.
void AlgorithmicDistance(Session& session, const DistanceOperand& x, const DistanceOperand& y);

// "&Algorithmic Distance": loads the two files, compares them and ends with the time needed or
// "User Abort". Empty files are measured like any other.
Outcome RunAlgorithmicDistance(Session& session, const DistanceParams& params);

}  // namespace tessarin
