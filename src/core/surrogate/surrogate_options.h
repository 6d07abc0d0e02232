#pragma once

#include <string>

namespace tessarin {

// What a surrogate keeps of the original besides its symbol counts.
enum class Preserve { kSymbols, kPairs, kTriples };

// Bits of the surrogate options word that the options form and its callers exchange.
inline constexpr int kSurrogateConfirmed = 1;    // the form was closed with OK
inline constexpr int kPreservePairs = 2;         // keep pair counts
inline constexpr int kAddEntropy = 4;            // compare subword entropies
inline constexpr int kEntropyEnabled = 8;        // the entropy box may be used
inline constexpr int kPreserveTriples = 16;      // keep triple counts (wins over pairs)
inline constexpr int kAddExceptionalWords = 32;  // compare exceptional words
inline constexpr int kExceptionalEnabled = 64;   // the exceptional-words box may be used
inline constexpr int kShuffleAllVertices = 128;  // shuffle every vertex uniformly

// The level an options word chooses: triples win over pairs.
Preserve PreserveFromOptions(int options);

// "Preserve: Triples, Pairs and Symbols", "Preserve: Pairs and Symbols" or "Preserve: Only Symbols".
std::string PreservationLine(Preserve preserve);

}  // namespace tessarin
