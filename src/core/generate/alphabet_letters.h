#pragma once

#include <string>

namespace tessarin {

// The printable letters of an alphabet of `size` symbols (1..223), letter of symbol k at [k - 1]:
// "ACGT" for 4, digits up to 10, hexadecimal digits up to 16, the amino-acid codes for 20,
// capitals, then digits or small letters up to 62, and from 63 on the characters from the blank up.
std::string AlphabetLetters(int size);

}  // namespace tessarin
