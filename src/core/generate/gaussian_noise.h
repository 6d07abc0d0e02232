#pragma once

#include "session/random_generator.h"

namespace tessarin {

// The spare value of the polar method and whether it is still unused. It outlives a run: the
// next run starts with it.
struct GaussianState {
    float spare = 0;
    bool available = false;
};

// A normal deviate, mean 0 and deviation 1, by the polar method in single precision: each
// accepted pair of draws gives two values, the second kept in `state` for the next call.
float GaussianValue(RandomGenerator& random, GaussianState& state);

}  // namespace tessarin
