#include "sequence/alphabet.h"

#include <gtest/gtest.h>

#include <string>

namespace tessarin {
namespace {

// Catches symbols numbered in order of first appearance instead of character code, case folded,
// or a blank dropped.
TEST(AlphabetTest, SymbolsNumberedInAscendingCharacterCode) {
    const Alphabet alphabet = BuildAlphabet("BA");
    EXPECT_EQ(Encode(alphabet, "BA"), (CodedSequence{0, 2, 1}));
    const Alphabet mixed = BuildAlphabet("xXa1 ");
    EXPECT_EQ(std::string(mixed.letters.begin(), mixed.letters.end()), " 1Xax");
    EXPECT_EQ(mixed.Letter(3), 'X');
    EXPECT_EQ(BuildAlphabet("AAAA").Size(), 1);
}

}  // namespace
}  // namespace tessarin
