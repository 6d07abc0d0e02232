#include "generate/leading_number.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace tessarin {
namespace {

bool IsDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

}  // namespace

double LeadingNumber(std::string_view text) {
    std::size_t at = text.find_first_not_of(" \t");
    if (at == std::string_view::npos) return 0;
    text.remove_prefix(at);
    bool negative = false;
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
        negative = text[0] == '-';
        text.remove_prefix(1);
    }
    std::size_t end = SkipDigits(text, 0);
    if (end < text.size() && text[end] == '.') end = SkipDigits(text, end + 1);
    if (end == 0 || (end == 1 && text[0] == '.')) return 0;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t exponent = end + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
        const std::size_t exponent_end = SkipDigits(text, exponent);
        if (exponent_end > exponent) end = exponent_end;
    }
    // from_chars reads no "+" in the exponent and no leading point; give it both plainly.
    std::string number = text[0] == '.' ? "0" : "";
    for (std::size_t i = 0; i < end; ++i) {
        if (text[i] != '+') number.push_back(text[i]);
    }
    double value = 0;
    if (std::from_chars(number.data(), number.data() + number.size(), value).ec == std::errc::result_out_of_range) {
        // Too small with a negative exponent, or a zero whole part and no exponent; too large otherwise.
        const std::size_t exponent = number.find_first_of("eE");
        const std::string whole = number.substr(0, number.find_first_of(".eE"));
        const bool tiny = exponent == std::string::npos ? whole.find_first_not_of('0') == std::string::npos
                                                        : number[exponent + 1] == '-';
        value = tiny ? 0 : std::numeric_limits<double>::infinity();
    }
    return negative ? -value : value;
}

int RoundedToInt(double value) {
    const double rounded = std::nearbyint(value);
    if (rounded >= std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
    if (rounded <= std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
    return static_cast<int>(rounded);
}

}  // namespace tessarin
