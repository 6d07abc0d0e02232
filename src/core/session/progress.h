#pragma once

#include <functional>
#include <string>

namespace tessarin {

// Long computations report a status text and the fraction done (0..1) through this callback;
// it answers true once the user has cancelled, and the computation then stops cleanly.
using ProgressFn = std::function<bool(const std::string& text, float fraction)>;

// A progress callback that shows nothing and never cancels.
inline bool NoProgress(const std::string&, float) {
    return false;
}

}  // namespace tessarin
