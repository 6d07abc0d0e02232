#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tessarin {

// The sequence every analysis works on. The alphabet and code table are rebuilt from the
// text by SequenceSummary at the start of each analysis.
struct CurrentSequence {
    std::string folder;     // ends with the path separator once set
    std::string file_name;  // without folder, with extension
    std::string text;       // one 8-bit character per symbol, line breaks removed
    // alphabet[k] is the character code of symbol k (1..K); alphabet[0] is 0.
    std::vector<unsigned char> alphabet{0};
    // Character code -> symbol number; entries of characters absent from the text are stale.
    std::array<std::int16_t, 256> code_table{};

    int AlphabetSize() const { return static_cast<int>(alphabet.size()) - 1; }
};

}  // namespace tessarin
