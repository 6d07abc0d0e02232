#pragma once

#include <cstdint>
#include <vector>

#include "surrogate/surrogate_measures.h"

namespace tessarin {

// A mean and its root mean square deviation, each rounded to single precision as they are shown.
struct MeanAndSpread {
    float mean = 0;
    float rms = 0;
};

// The running sums of an ensemble run, in double precision, added in surrogate order.
class EnsembleSums {
  public:
    EnsembleSums(int max_length, std::size_t word_count);

    // The entropies H(0..max_length) of one surrogate: H(l) and the differences H(l) - H(l-1).
    void AddEntropies(const std::vector<float>& entropies);
    void AddWordCounts(const std::vector<std::int32_t>& counts);
    void AddComplexity(float complexity);

    int complexities() const { return complexities_; }
    int entropy_profiles() const { return entropy_profiles_; }
    MeanAndSpread Complexity() const;
    MeanAndSpread Entropy(int length) const;
    MeanAndSpread ConditionalEntropy(int length) const;
    double WordSum(std::size_t word) const { return word_sums_[word]; }

  private:
    struct Sums {
        double sum = 0;
        double squares = 0;
        void Add(double value) {
            sum += value;
            squares += value * value;
        }
        MeanAndSpread Of(int count) const;
    };

    Sums complexity_;
    int complexities_ = 0;
    std::vector<Sums> entropy_;      // per length 1..max_length (index 0 unused)
    std::vector<Sums> conditional_;  // per length, of H(l) - H(l - 1)
    int entropy_profiles_ = 0;
    std::vector<double> word_sums_;
};

}  // namespace tessarin
