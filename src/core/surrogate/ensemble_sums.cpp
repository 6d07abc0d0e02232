#include "surrogate/ensemble_sums.h"

#include <algorithm>

#include "common/safe_sqrt.h"

namespace tessarin {

EnsembleSums::EnsembleSums(int max_length, std::size_t word_count)
    : entropy_(static_cast<std::size_t>(std::max(max_length, 0)) + 1),
      conditional_(entropy_.size()),
      word_sums_(word_count, 0.0) {}

// The spread is taken around the mean as it is shown.
MeanAndSpread EnsembleSums::Sums::Of(int count) const {
    MeanAndSpread result;
    result.mean = static_cast<float>(sum / count);
    result.rms = static_cast<float>(SafeSqrt(squares / count - static_cast<double>(result.mean) * result.mean));
    return result;
}

void EnsembleSums::AddEntropies(const std::vector<float>& entropies) {
    ++entropy_profiles_;
    for (std::size_t l = 1; l < entropy_.size(); ++l) {
        entropy_[l].Add(entropies[l]);
        conditional_[l].Add(static_cast<double>(entropies[l]) - entropies[l - 1]);
    }
}

void EnsembleSums::AddWordCounts(const std::vector<std::int32_t>& counts) {
    for (std::size_t w = 0; w < word_sums_.size(); ++w)
        word_sums_[w] += counts[w];
}

void EnsembleSums::AddComplexity(float complexity) {
    ++complexities_;
    complexity_.Add(complexity);
}

MeanAndSpread EnsembleSums::Complexity() const {
    return complexity_.Of(complexities_);
}

MeanAndSpread EnsembleSums::Entropy(int length) const {
    return entropy_[length].Of(entropy_profiles_);
}

MeanAndSpread EnsembleSums::ConditionalEntropy(int length) const {
    return conditional_[length].Of(entropy_profiles_);
}

}  // namespace tessarin
