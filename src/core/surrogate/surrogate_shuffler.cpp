#include "surrogate/surrogate_shuffler.h"

#include <utility>

#include "surrogate/coded_length.h"
#include "surrogate/shuffle_symbols.h"
#include "surrogate/verify_pairs.h"

namespace tessarin {
namespace {

constexpr const char* kPairsRefused =
    "Pairs cannot be kept: the first letter of the alphabet occurs only at the end of the sequence. "
    "Choose \"Only Symbols\" or \"Shuffle All Vertices\".";
constexpr const char* kTriplesRefused =
    "Triples cannot be kept: the first pair of letters (in alphabet order) occurs only at the end of the "
    "sequence. Choose \"Only Symbols\" or \"Shuffle All Vertices\".";

}  // namespace

SurrogateShuffler::SurrogateShuffler(std::vector<std::int32_t> original, int alphabet_size, Preserve preserve,
                                     bool uniform)
    : original_(std::move(original)), alphabet_size_(alphabet_size), preserve_(preserve), uniform_(uniform) {
    switch (preserve_) {
        case Preserve::kSymbols:
            working_ = original_;
            return;
        case Preserve::kPairs:
            lists_ = BuildPairLists(original_, alphabet_size_);
            break;
        case Preserve::kTriples: {
            TripleLists triples = BuildTripleLists(original_, alphabet_size_);
            lists_ = std::move(triples.edge_lists);
            pair_words_ = std::move(triples.pair_words);
            break;
        }
    }
    if (!uniform_ && (lists_.size() < 2 || EdgeCount(lists_[1]) < 1)) {
        throw SurrogateRefusal(preserve_ == Preserve::kPairs ? kPairsRefused : kTriplesRefused);
    }
}

PermuteOutcome SurrogateShuffler::Permute(RandomGenerator& random, const ShuffleCallbacks& callbacks) {
    if (!uniform_) {
        std::int64_t rounds = 0;
        return PermuteEdgeLists(lists_, rounds, random, callbacks);
    }
    PermuteEdgeListsUniformly(lists_, random);
    return PermuteOutcome::kFound;
}

SurrogateDraw SurrogateShuffler::Next(RandomGenerator& random, const ShuffleCallbacks& callbacks) {
    SurrogateDraw draw;
    switch (preserve_) {
        case Preserve::kSymbols:
            if (uniform_) {
                ShuffleSymbolsUniformly(working_, random);
            } else {
                ShuffleSymbols(working_, CodedLength(working_), random);
            }
            draw.sequence = working_;
            break;
        case Preserve::kPairs: {
            draw.permute = Permute(random, callbacks);
            Walk walk = WalkPairLists(lists_);
            draw.sequence = std::move(walk.sequence);
            draw.walk = walk.outcome;
            draw.pairs_verified = VerifyPairs(original_, draw.sequence, alphabet_size_);
            break;
        }
        case Preserve::kTriples: {
            draw.permute = Permute(random, callbacks);
            Walk walk = WalkTripleLists(lists_, pair_words_);
            draw.sequence = std::move(walk.sequence);
            draw.walk = walk.outcome;
            break;
        }
    }
    return draw;
}

}  // namespace tessarin
