#pragma once

#include <string>

#include "sequence/alphabet.h"

namespace tessarin {

// The sequence every analysis works on. A command that analyses it sets the alphabet from the
// text before it starts (the alphabet of an earlier text may still stand until then).
struct CurrentSequence {
    std::string folder;     // ends with the path separator once set
    std::string file_name;  // without folder, with extension
    std::string text;       // one 8-bit character per symbol, line breaks removed
    Alphabet alphabet;

    int AlphabetSize() const { return alphabet.Size(); }
};

}  // namespace tessarin
