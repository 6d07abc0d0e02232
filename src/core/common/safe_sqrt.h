#pragma once

#include <cmath>

namespace tessarin {

// The square root, 0 for a negative argument: a spread computed as mean of squares less the
// squared mean can come out slightly below 0 by rounding.
inline double SafeSqrt(double x) {
    return x < 0 ? 0 : std::sqrt(x);
}

}  // namespace tessarin
