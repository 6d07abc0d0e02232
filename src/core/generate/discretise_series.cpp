#include "generate/discretise_series.h"

#include <algorithm>
#include <cmath>

#include "generate/alphabet_letters.h"
#include "generate/sort_with_progress.h"

namespace tessarin {
namespace {

constexpr int kProgressStride = 4096;

std::optional<std::vector<float>> EqualFrequencyThresholds(std::span<const float> values, int alphabet_size,
                                                           const ProgressFn& progress) {
    std::vector<float> sorted(values.begin(), values.end());
    if (!SortWithProgress(sorted, progress)) return std::nullopt;
    const double last = static_cast<double>(sorted.size()) - 1;
    std::vector<float> thresholds(static_cast<std::size_t>(alphabet_size) + 1);
    for (int q = 0; q <= alphabet_size; ++q) {
        // Position q / A * (N - 1) + 1, evaluated left to right and rounded half to even
        // (nearbyint in the default rounding mode); t(0) is the minimum and t(A) the maximum.
        const double position = std::nearbyint(static_cast<double>(q) / alphabet_size * last + 1);
        thresholds[static_cast<std::size_t>(q)] = sorted[static_cast<std::size_t>(position) - 1];
    }
    return thresholds;
}

}  // namespace

std::optional<std::vector<float>> PartitionThresholds(std::span<const float> values, const SeriesStatistics& statistics,
                                                      int alphabet_size, Partition partition,
                                                      const ProgressFn& progress) {
    if (partition == Partition::kEqualFrequency) return EqualFrequencyThresholds(values, alphabet_size, progress);
    std::vector<float> thresholds(static_cast<std::size_t>(alphabet_size) + 1);
    const double minimum = statistics.minimum;
    const double maximum = statistics.maximum;
    for (int q = 0; q <= alphabet_size; ++q) {
        const double t = partition == Partition::kEqualIntervals
                             ? minimum + (maximum - minimum) * q / alphabet_size
                             : (q - alphabet_size / 2.0) * statistics.deviation + statistics.mean;
        thresholds[static_cast<std::size_t>(q)] = static_cast<float>(t);
    }
    return thresholds;
}

std::optional<Discretisation> DiscretiseSeries(std::span<const float> values, const SeriesStatistics& statistics,
                                               int alphabet_size, Partition partition, const ProgressFn& progress) {
    auto thresholds = PartitionThresholds(values, statistics, alphabet_size, partition, progress);
    if (!thresholds) return std::nullopt;
    Discretisation result{std::move(*thresholds), AlphabetLetters(alphabet_size), {}};
    const std::vector<float>& t = result.thresholds;
    const std::size_t n = values.size();
    if (t[static_cast<std::size_t>(alphabet_size)] - t[0] == 0) {
        result.text.assign(n, result.letters[0]);
        return result;
    }
    result.text.resize(n);
    // The thresholds never fall, so the smallest k with v <= t(k) is found by bisection over t(1..A).
    const auto first = t.begin() + 1;
    const auto last = t.end();
    for (std::size_t i = 0; i < n; ++i) {
        if (i % kProgressStride == 0 &&
            progress("Partitioning...", static_cast<float>(static_cast<double>(i) / static_cast<double>(n)))) {
            return std::nullopt;
        }
        const auto above = std::lower_bound(first, last, values[i]);
        const auto k = above == last ? alphabet_size : static_cast<int>(above - t.begin());
        result.text[i] = result.letters[static_cast<std::size_t>(k) - 1];
    }
    progress("", 1);
    return result;
}

void SetDiscretisedSequence(CurrentSequence& sequence, const Discretisation& discretisation) {
    sequence.text = discretisation.text;
    sequence.alphabet.letters.clear();
    for (std::size_t k = 0; k < discretisation.letters.size(); ++k) {
        const auto letter = static_cast<unsigned char>(discretisation.letters[k]);
        sequence.alphabet.letters.push_back(letter);
        sequence.alphabet.codes[letter] = static_cast<std::int16_t>(k + 1);
    }
}

}  // namespace tessarin
