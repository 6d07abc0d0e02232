#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "session/command.h"
#include "subwords/subword_command.h"
#include "subwords/subword_group.h"

namespace tessarin {

inline constexpr const char* kExceptionalWordsTitle = "Exceptional Subwords";
// Shorter words are never exceptional: a first-order chain predicts pairs exactly.
inline constexpr int kShortestExceptionalWord = 3;

// Symbol and pair frequencies of a sequence: the first-order Markov chain fitted to it.
class MarkovChain {
  public:
    MarkovChain(std::span<const std::int32_t> coded, int alphabet_size);

    // The probability of a word whose prefix one symbol shorter has `prefix_probability`, and
    // whose last two symbols are `before_last` and `last`: P(s1) x P(s1 s2) / P(s1) x ... taken
    // from left to right, each step rounded to single precision, so each length extends the last.
    float Extend(float prefix_probability, std::int32_t before_last, std::int32_t last) const;
    float Symbol(std::int32_t symbol) const { return symbol_[static_cast<std::size_t>(symbol)]; }

  private:
    std::size_t side_;
    std::vector<float> symbol_;
    std::vector<float> pair_;
};

// An exceptional word of a group, at least three times as frequent as the chain predicts.
struct ExceptionalWord {
    std::size_t index = 0;  // in its group
    float observed = 0;     // count / (N - length + 1)
    float predicted = 0;
};

// The chain's probability of each word of `group`, from those of the group one symbol shorter
// (`parent_probabilities`, empty at length 1).
std::vector<float> WordProbabilities(const SubwordGroup& group, std::span<const float> parent_probabilities,
                                     const MarkovChain& chain, std::span<const std::int32_t> coded);

// The exceptional words of `group` (none shorter than kShortestExceptionalWord), in group order.
std::vector<ExceptionalWord> ExceptionalWords(const SubwordGroup& group, std::span<const float> probabilities,
                                              int sequence_length);

// "Exceptional Subwords" of params.input, lengths 3..params.max_length, with their positions when
// asked, in "<base>_lst.log";
// its table as params.table asks.
Outcome RunExceptionalWords(Session& session, const SubwordParams& params);

}  // namespace tessarin
