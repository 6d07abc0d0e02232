#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "generate/number_series.h"
#include "session/progress.h"

namespace tessarin {

// A number-series file that cannot be used: unreadable, a token that is not a number, or fewer
// than two values. The message names the file.
class SeriesFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The numbers of a series file's text, separated by blanks, tabs, commas, semicolons or line ends
// (CR LF, LF or CR), with their statistics; `file_name` is named in the messages. Reports
// "Reading.."; nothing when the user cancels. Throws SeriesFileError for a token that is not a
// single-precision number (naming its line and the token) and for fewer than two values.
std::optional<NumberSeries> ParseNumberSeries(std::string_view text, const std::string& file_name,
                                              const ProgressFn& progress);

// ParseNumberSeries of the file at `path`.
std::optional<NumberSeries> ReadNumberSeries(const std::filesystem::path& path, const ProgressFn& progress);

}  // namespace tessarin
