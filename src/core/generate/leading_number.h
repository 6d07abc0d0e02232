#pragma once

#include <string_view>

namespace tessarin {

// The number at the start of a typed answer: after leading blanks or tabs, an optional sign,
// digits, a point with more digits and an exponent; the rest is ignored ("1 0" reads 1, "x" reads
// 0), as input boxes read numbers.
double LeadingNumber(std::string_view text);

// A double rounded to a whole number, halves to the even neighbour, and held within int's range.
int RoundedToInt(double value);

}  // namespace tessarin
