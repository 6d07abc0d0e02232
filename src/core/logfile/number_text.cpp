#include "logfile/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tessarin {
namespace {

// `significant` digits of |value|, rounded: the digits without the point (trailing zeros
// dropped) and the decimal exponent of the first one. std::to_chars ignores the C locale,
// which the desktop toolkit sets from the environment.
void SignificantDigits(double magnitude, int significant, std::string* digits, int* exponent) {
    char buffer[64];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific, significant - 1).ptr;
    const std::string text(buffer, end);
    const std::size_t e = text.find('e');
    *exponent = std::atoi(text.c_str() + e + 1);
    digits->clear();
    for (std::size_t i = 0; i < e; ++i) {
        if (text[i] != '.') digits->push_back(text[i]);
    }
    while (digits->size() > 1 && digits->back() == '0')
        digits->pop_back();
}

std::string FloatingText(double value, int significant) {
    if (std::isnan(value)) return " NaN";
    if (std::isinf(value)) return value > 0 ? " Infinity" : "-Infinity";
    if (value == 0) return " 0";

    std::string digits;
    int exponent = 0;
    SignificantDigits(std::fabs(value), significant, &digits, &exponent);

    // Built by appending: GCC 12 warns falsely (-Wrestrict) on "literal" + temporary string.
    std::string text(1, value < 0 ? '-' : ' ');
    if (exponent < -4 || exponent >= significant) {
        text.append(digits, 0, 1);
        if (digits.size() > 1) text.append(".").append(digits, 1);
        char exponent_text[16];
        std::snprintf(exponent_text, sizeof exponent_text, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
        return text.append(exponent_text);
    }
    if (exponent < 0) return text.append(".").append(static_cast<std::size_t>(-exponent - 1), '0').append(digits);
    const std::size_t integer_digits = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= integer_digits) return text.append(digits).append(integer_digits - digits.size(), '0');
    return text.append(digits, 0, integer_digits).append(".").append(digits, integer_digits);
}

}  // namespace

std::string IntegerText(long long value) {
    std::string text = value < 0 ? "" : " ";
    return text.append(std::to_string(value));
}

std::string SingleText(float value) {
    return FloatingText(static_cast<double>(value), 7);
}

std::string DoubleText(double value) {
    return FloatingText(value, 15);
}

std::string FixedDecimalsText(double value, int decimals) {
    char buffer[400];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals).ptr;
    std::string text(buffer, end);
    // A value that rounds to zero is written without a sign.
    if (text[0] == '-' && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
    return text;
}

}  // namespace tessarin
