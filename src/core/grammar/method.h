#pragma once

#include <optional>
#include <string_view>

namespace tessarin {

// The rule-selection methods of the grammar compression. The values are the indices of the
// method buttons of the grammar options form, which the desktop program keeps between runs.
enum class Method { kNvogram = 0, kShortestFirst = 1, kLongestFirst = 2, kMaximumGain = 3 };

// The report's method line, "Method: NVOGRAM method" and so on.
std::string_view MethodLine(Method method);

// The method of a command-line name: nvogram, shortest, longest or gain; nothing for any other.
std::optional<Method> ParseMethod(std::string_view name);

}  // namespace tessarin
