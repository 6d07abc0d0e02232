#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tessarin {

// Symbol numbers at positions 1..n (index 0 is free; a grammar keeps a rule's code there).
using CodedSequence = std::vector<std::int32_t>;

// The symbols of a text: its distinct characters numbered 1..K in ascending character code.
struct Alphabet {
    std::vector<unsigned char> letters;     // the character of symbol k at [k - 1]
    std::array<std::int16_t, 256> codes{};  // character code -> symbol number, 0 for an absent character

    int Size() const { return static_cast<int>(letters.size()); }
    char Letter(int symbol) const { return static_cast<char>(letters[static_cast<std::size_t>(symbol - 1)]); }
};

Alphabet BuildAlphabet(std::string_view text);

// The text as symbol numbers at positions 1..n; every character of it must be in the alphabet.
CodedSequence Encode(const Alphabet& alphabet, std::string_view text);

}  // namespace tessarin
