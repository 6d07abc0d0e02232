#include "generate/gaussian_noise.h"

#include <cmath>

namespace tessarin {

float GaussianValue(RandomGenerator& random, GaussianState& state) {
    if (state.available) {
        state.available = false;
        return state.spare;
    }
    float a = 0;
    float b = 0;
    float s = 0;
    do {
        a = 2.0F * static_cast<float>(random.Next()) - 1.0F;
        b = 2.0F * static_cast<float>(random.Next()) - 1.0F;
        s = b * b + a * a;
    } while (!(s > 0 && s < 1));
    const float f = std::sqrt(-2.0F * std::log(s) / s);
    state.spare = a * f;
    state.available = true;
    return b * f;
}

}  // namespace tessarin
