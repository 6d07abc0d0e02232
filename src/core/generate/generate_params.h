#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

#include "generate/signal_source.h"

namespace tessarin {

// Generate a series (0), or discretise a series read from a file (1).
enum class GenerateMode { kGenerate = 0, kDiscretiseFile = 1 };

// How the series is written: numbers, one per line; symbols, one per line; symbols in one line.
enum class OutputFormat { kNumbers = 0, kSymbolsPerLine = 1, kSymbolsInOneLine = 2 };

// How the series is cut into alphabet_size intervals.
enum class Partition { kEqualFrequency = 0, kEqualIntervals = 1, kMultiplesOfRms = 2 };

inline constexpr int kMaxAlphabetSize = 223;  // letters from the blank up to code 254

// The generation settings, which the front ends keep between runs and the options form edits,
// and the files of one run, chosen before it starts.
struct GenerateParams {
    GenerateMode mode = GenerateMode::kGenerate;
    OutputFormat format = OutputFormat::kSymbolsInOneLine;
    SignalSource source = SignalSource::kWhiteNoise;
    int coordinate = 0;  // 0 = x, 1 = y, 2 = z, for the Henon map and the Lorenz system
    int length = 1000;   // in mode 1 the number of values read
    int alphabet_size = 4;
    Partition partition = Partition::kEqualFrequency;
    float logistic_r = 4;
    float sine_period = 256;  // in samples; 0 gives a constant 0
    int bernoulli_n = 10;
    float bernoulli_p = 0.5F;
    std::filesystem::path series_file;  // mode 1: the series to discretise
    std::filesystem::path output_path;
};

// Settings that the options form would have refused; the message is the form's.
class GenerateSettingsError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The message that refuses the settings ("Sequence Length < 2", "Alphabet Size > 223", ...),
// checked in the options form's order; nothing when they are valid.
std::optional<std::string> GenerateSettingsRefusal(const GenerateParams& params);

// The output name the save dialog proposes: the source's word (mode 0) or the series file's base
// name (mode 1), then "(" alphabet size ")" for symbols, then ".txt": "Logistic(4).txt", "White.txt".
std::string ProposedOutputName(const GenerateParams& params);

}  // namespace tessarin
