#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "session/progress.h"

namespace tessarin {

// A square matrix of single-precision distances, both indices 0..n, every entry 0 at the start.
// Index 0 is never used, so that file i is row and column i.
class DistanceMatrix {
  public:
    explicit DistanceMatrix(int n) : n_(n), cells_(static_cast<std::size_t>(n + 1) * (n + 1), 0.0F) {}

    int size() const { return n_; }
    float& operator()(int i, int j) { return cells_[Cell(i, j)]; }
    float operator()(int i, int j) const { return cells_[Cell(i, j)]; }

  private:
    std::size_t Cell(int i, int j) const { return static_cast<std::size_t>(i) * (n_ + 1) + j; }

    int n_;
    std::vector<float> cells_;
};

// Answers whether the run is to stop; polled from many threads at once.
using CancelFn = std::function<bool()>;

// The relative distance 2 - (K_i + K_j) / K_ij of every pair of `texts` (numbered from 1), where
// K_ij is the complexity of the later text followed directly by the earlier one; a pair whose
// concatenation has complexity 0 keeps the entry 0, and the diagonal stays 0. The n single and
// n(n-1)/2 pair complexities run on up to `threads` threads, and the entries do not depend on
// how many. `progress` is called on the calling thread only, with captions that start with the
// `names` of the texts measured; `cancelled` is polled by every thread. Nothing when cancelled.
std::optional<DistanceMatrix> FillDistanceMatrix(std::span<const std::string> texts, std::span<const std::string> names,
                                                 int threads, const ProgressFn& progress, const CancelFn& cancelled);

}  // namespace tessarin
