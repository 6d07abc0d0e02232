#pragma once

#include <array>
#include <cstdint>

namespace tessarin {

// The program's one random generator: xoshiro256** (Blackman and Vigna, 2018), written out here so
// that a seed gives the same stream on every platform and standard library (`--seed` reproduces a
// run). The 64-bit seed is spread over the 256-bit state by splitmix64, as the authors advise.
class RandomGenerator {
  public:
    explicit RandomGenerator(std::uint64_t seed = 0) { Seed(seed); }

    void Seed(std::uint64_t seed) {
        for (std::uint64_t& word : state_) {
            seed += 0x9E3779B97F4A7C15ULL;
            std::uint64_t z = seed;
            z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
            z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
            word = z ^ (z >> 31);
        }
    }

    // The top 53 bits of the next output scaled into [0, 1).
    double Next() { return static_cast<double>(NextBits() >> 11) * 0x1.0p-53; }

    // A random index in 1..m: the integer part of r * m, plus 1.
    int Index(int m) { return static_cast<int>(Next() * m) + 1; }

  private:
    static std::uint64_t RotateLeft(std::uint64_t x, int k) { return (x << k) | (x >> (64 - k)); }

    std::uint64_t NextBits() {
        const std::uint64_t result = RotateLeft(state_[1] * 5, 7) * 9;
        const std::uint64_t t = state_[1] << 17;
        state_[2] ^= state_[0];
        state_[3] ^= state_[1];
        state_[1] ^= state_[2];
        state_[0] ^= state_[3];
        state_[2] ^= t;
        state_[3] = RotateLeft(state_[3], 45);
        return result;
    }

    std::array<std::uint64_t, 4> state_{};
};

}  // namespace tessarin
