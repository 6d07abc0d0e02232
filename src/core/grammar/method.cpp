#include "grammar/method.h"

#include <array>

namespace tessarin {
namespace {

struct MethodNames {
    Method method;
    std::string_view name;
    std::string_view line;
};

constexpr std::array<MethodNames, 4> kMethodNames{{
    {Method::kNvogram, "nvogram", "Method: NVOGRAM method"},
    {Method::kShortestFirst, "shortest", "Method: Shortest First"},
    {Method::kLongestFirst, "longest", "Method: Longest First"},
    {Method::kMaximumGain, "gain", "Method: Maximum Gain"},
}};

}  // namespace

std::string_view MethodLine(Method method) {
    return kMethodNames[static_cast<std::size_t>(method)].line;
}

std::optional<Method> ParseMethod(std::string_view name) {
    for (const MethodNames& names : kMethodNames) {
        if (names.name == name) return names.method;
    }
    return std::nullopt;
}

}  // namespace tessarin
