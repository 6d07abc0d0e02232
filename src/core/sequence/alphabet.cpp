#include "sequence/alphabet.h"

namespace tessarin {

void BuildAlphabet(const std::vector<std::int64_t>& counts, CurrentSequence& sequence) {
    sequence.alphabet.assign(1, 0);
    for (int code = 0; code < 256; ++code) {
        if (counts[code] == 0) continue;
        sequence.alphabet.push_back(static_cast<unsigned char>(code));
        sequence.code_table[code] = static_cast<std::int16_t>(sequence.alphabet.size() - 1);
    }
}

CodedSequence EncodeSequence(const CurrentSequence& sequence, const std::string& text) {
    CodedSequence coded(text.size() + 1, 0);
    for (std::size_t i = 0; i < text.size(); ++i) {
        coded[i + 1] = sequence.code_table[static_cast<unsigned char>(text[i])];
    }
    return coded;
}

}  // namespace tessarin
