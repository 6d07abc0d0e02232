#include "sequence/alphabet.h"

namespace tessarin {

Alphabet BuildAlphabet(std::string_view text) {
    std::array<bool, 256> present{};
    for (const char c : text)
        present[static_cast<unsigned char>(c)] = true;
    Alphabet alphabet;
    for (int code = 0; code < 256; ++code) {
        if (!present[static_cast<std::size_t>(code)]) continue;
        alphabet.letters.push_back(static_cast<unsigned char>(code));
        alphabet.codes[static_cast<std::size_t>(code)] = static_cast<std::int16_t>(alphabet.letters.size());
    }
    return alphabet;
}

CodedSequence Encode(const Alphabet& alphabet, std::string_view text) {
    CodedSequence coded(text.size() + 1, 0);
    for (std::size_t i = 0; i < text.size(); ++i)
        coded[i + 1] = alphabet.codes[static_cast<unsigned char>(text[i])];
    return coded;
}

}  // namespace tessarin
