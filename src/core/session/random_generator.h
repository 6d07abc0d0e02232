#pragma once

#include <cstdint>
#include <random>

namespace tessarin {

// The program's one random generator: uniform numbers in [0, 1), the same stream on every
// platform for a given seed (so `--seed` reproduces a run).
class RandomGenerator {
  public:
    explicit RandomGenerator(std::uint64_t seed = 0) : engine_(seed) {}

    void Seed(std::uint64_t seed) { engine_.seed(seed); }

    // 53 random bits scaled into [0, 1); std::uniform_real_distribution differs between libraries.
    double Next() { return static_cast<double>(engine_() >> 11) * 0x1.0p-53; }

    // A random index in 1..m: the integer part of r * m, plus 1.
    int Index(int m) { return static_cast<int>(Next() * m) + 1; }

  private:
    std::mt19937_64 engine_;
};

}  // namespace tessarin
