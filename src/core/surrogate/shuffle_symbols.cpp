#include "surrogate/shuffle_symbols.h"

#include <utility>

#include "surrogate/coded_length.h"

namespace tessarin {

void ShuffleSymbols(std::span<std::int32_t> coded, int swaps, RandomGenerator& random) {
    const int length = CodedLength(coded);
    if (length < 2) return;
    for (int swap = 0; swap < swaps; ++swap) {
        const int i = random.Index(length);
        int j = random.Index(length);
        while (j == i)
            j = random.Index(length);
        std::swap(coded[i], coded[j]);
    }
}

void ShuffleSymbolsUniformly(std::span<std::int32_t> coded, RandomGenerator& random) {
    for (int i = CodedLength(coded); i >= 2; --i)
        std::swap(coded[i], coded[random.Index(i)]);
}

}  // namespace tessarin
