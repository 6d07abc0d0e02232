#pragma once

#include <filesystem>

#include "generate/generate_command.h"

namespace tessarin {

// Writes the distribution plot of the last generated or discretised series (with its partition)
// as PNG, or SVG for a name ending in ".svg", as the desktop program's plot window saves it.
// Throws a std::runtime_error when the image cannot be written or this build has no plotting.
void WritePlot(const GenerateState& state, const std::filesystem::path& path);

}  // namespace tessarin
