#pragma once

#include <string>

namespace tessarin {

// The sources the generation form offers, in the order of its buttons. The Henon map and the
// Lorenz system take a coordinate (0 = x, 1 = y, 2 = z); the other sources ignore it.
enum class SignalSource {
    kWhiteNoise,
    kExponentialNoise,
    kGaussianNoise,
    kLogisticMap,
    kHenonMap,
    kLorenzSystem,
    kSineWave,
    kBernoulli,
};

inline constexpr int kSignalSourceCount = 8;

// How many coordinates a source offers: 2 for the Henon map, 3 for the Lorenz system, 1 otherwise.
int CoordinateCount(SignalSource source);

// The generator's source code 0..10: 0..3 the noises and the logistic map, 4 and 5 the Henon x
// and y, 6..8 the Lorenz x, y and z, 9 the sine wave, 10 the Bernoulli counts.
int SourceCode(SignalSource source, int coordinate);

// The word that names the output files of a source ("White", "Exponent", ..., "Bernoulli").
std::string SourceFileWord(SignalSource source);

}  // namespace tessarin
