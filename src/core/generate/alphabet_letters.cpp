#include "generate/alphabet_letters.h"

namespace tessarin {
namespace {

constexpr int kCapitals = 26;

// Letter k (1-based) of the alphabets beyond 20 symbols.
char LargeAlphabetLetter(int size, int k) {
    if (size >= 63) return static_cast<char>(32 + k - 1);
    if (k <= kCapitals) return static_cast<char>('A' + k - 1);
    if (size <= 36) return static_cast<char>('0' + k - 27);
    if (size <= 52 || k <= 2 * kCapitals) return static_cast<char>('a' + k - 27);
    return static_cast<char>('0' + k - 53);
}

}  // namespace

std::string AlphabetLetters(int size) {
    if (size == 4) return "ACGT";
    // The amino-acid one-letter codes in this fixed order, not alphabetical.
    if (size == 20) return "GADPSCNEKVQTMLIRHFYW";
    std::string letters;
    for (int k = 1; k <= size; ++k) {
        if (size <= 10) {
            letters.push_back(static_cast<char>('0' + k - 1));
        } else if (size <= 16) {
            letters.push_back("0123456789ABCDEF"[k - 1]);
        } else {
            letters.push_back(LargeAlphabetLetter(size, k));
        }
    }
    return letters;
}

}  // namespace tessarin
