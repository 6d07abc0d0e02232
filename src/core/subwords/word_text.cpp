#include "subwords/word_text.h"

namespace tessarin {

std::string WordToText(const WordRecord& word, const CurrentSequence& sequence) {
    std::string text;
    text.reserve(static_cast<std::size_t>(word.Length()));
    for (int k = 1; k <= word.Length(); ++k)
        text.push_back(static_cast<char>(sequence.alphabet[word.symbols[k]]));
    return text;
}

}  // namespace tessarin
