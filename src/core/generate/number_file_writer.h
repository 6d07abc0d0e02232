#pragma once

#include <filesystem>
#include <span>

namespace tessarin {

// Writes the series to `path` (created or truncated), one value per line in single-precision
// number text (" .25", "-1.5E-08"), each line ended by CR LF. Throws SequenceWriteError when the
// file cannot be written.
void WriteNumberFile(const std::filesystem::path& path, std::span<const float> values);

}  // namespace tessarin
