#include "subwords/word_text.h"

namespace tessarin {

std::string_view WordToText(const CurrentSequence& sequence, const Subword& word, int length) {
    return std::string_view(sequence.text)
        .substr(static_cast<std::size_t>(word.at.position) - 1, static_cast<std::size_t>(length));
}

}  // namespace tessarin
