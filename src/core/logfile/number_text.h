#pragma once

#include <string>

namespace tessarin {

// Numbers in report lines: a leading blank for zero and positive values, a minus sign for
// negative ones; integers in full; other values with at most 7 (single) or 15 (double)
// significant digits, trailing zeros dropped, no "0" before the point, and scientific form
// ("1E-05", "1.234568E+07") when the decimal exponent is below -4 or at least that many digits.
// The point is the decimal separator whatever the locale.
std::string IntegerText(long long value);
std::string SingleText(float value);
std::string DoubleText(double value);

// A pattern such as "0.000": rounded to `decimals` places, with a leading zero.
std::string FixedDecimalsText(double value, int decimals);

}  // namespace tessarin
