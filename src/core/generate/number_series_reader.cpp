#include "generate/number_series_reader.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>

namespace tessarin {
namespace {

constexpr std::size_t kProgressStride = 1 << 16;  // bytes between progress reports

bool IsSeparator(char c) {
    return c == ' ' || c == '\t' || c == ',' || c == ';' || c == '\r' || c == '\n';
}

// The whole token as a finite single-precision number; an optional "+" is allowed before it.
std::optional<float> TokenValue(std::string_view token) {
    if (token.size() > 1 && token[0] == '+' && token[1] != '-') token.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), value);
    if (error != std::errc() || end != token.data() + token.size()) return std::nullopt;
    if (!std::isfinite(value) || std::fabs(value) > std::numeric_limits<float>::max()) return std::nullopt;
    return static_cast<float>(value);
}

}  // namespace

std::optional<NumberSeries> ParseNumberSeries(std::string_view text, const std::string& file_name,
                                              const ProgressFn& progress) {
    NumberSeries series;
    StatisticsAccumulator statistics;
    int line = 1;
    std::size_t next_report = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (at >= next_report) {
            if (progress("Reading..", static_cast<float>(static_cast<double>(at) / static_cast<double>(text.size())))) {
                return std::nullopt;
            }
            next_report = at + kProgressStride;
        }
        const char c = text[at];
        if (IsSeparator(c)) {
            // CR LF counts as one line end.
            if (c == '\n' || (c == '\r' && (at + 1 == text.size() || text[at + 1] != '\n'))) ++line;
            ++at;
            continue;
        }
        std::size_t end = at;
        while (end < text.size() && !IsSeparator(text[end]))
            ++end;
        const std::string_view token = text.substr(at, end - at);
        const std::optional<float> value = TokenValue(token);
        if (!value) {
            progress("", 1);
            throw SeriesFileError("Line " + std::to_string(line) + " of " + file_name + ": \"" + std::string(token) +
                                  "\" is not a number");
        }
        series.values.push_back(*value);
        statistics.Add(*value);
        at = end;
    }
    progress("", 1);
    if (series.values.size() < 2) throw SeriesFileError("File " + file_name + " contains no time series");
    series.statistics = statistics.Result();
    return series;
}

std::optional<NumberSeries> ReadNumberSeries(const std::filesystem::path& path, const ProgressFn& progress) {
    std::ifstream file(path, std::ios::binary);
    const std::string file_name = path.filename().string();
    if (!file) throw SeriesFileError("Cannot read the series file " + path.string());
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return ParseNumberSeries(text, file_name, progress);
}

}  // namespace tessarin
