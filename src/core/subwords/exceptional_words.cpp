#include "subwords/exceptional_words.h"

#include <string>
#include <vector>

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "subwords/subword_command.h"
#include "subwords/subword_report.h"
#include "subwords/word_text.h"

namespace tessarin {
namespace {

constexpr const char* kTitle = "Exceptional Subwords";
constexpr int kShortestWord = 3;

// Symbol and pair frequencies of a first-order Markov chain, accumulated in single precision by
// adding 1/N (1/(N - 1) for pairs) per occurrence.
class MarkovChain {
  public:
    MarkovChain(const CodedSequence& coded, int alphabet_size)
        : side_(static_cast<std::size_t>(alphabet_size) + 1), symbol_(side_, 0.0F), pair_(side_ * side_, 0.0F) {
        const int n = SequenceLength(coded);
        for (int p = 1; p <= n; ++p) {
            float& entry = symbol_[coded[p]];
            entry = static_cast<float>(entry + 1.0 / n);
        }
        for (int p = 1; p < n; ++p) {
            float& entry = pair_[coded[p] * side_ + coded[p + 1]];
            entry = static_cast<float>(entry + 1.0 / (n - 1));
        }
    }

    // P(s1) x P(s1 s2) / P(s1) x ... from left to right, each step rounded to single precision.
    float WordProbability(const WordRecord& word) const {
        const auto& s = word.symbols;
        float probability = symbol_[s[1]];
        for (int j = 1; j < word.Length(); ++j) {
            probability = static_cast<float>(static_cast<double>(probability) * pair_[s[j] * side_ + s[j + 1]]);
            probability = static_cast<float>(static_cast<double>(probability) / symbol_[s[j]]);
        }
        return probability;
    }

  private:
    std::size_t side_;
    std::vector<float> symbol_;
    std::vector<float> pair_;
};

}  // namespace

bool FindExceptionalWords(Session& session, int positions_flag, int max_length) {
    if (!StartSubwordReport(session, "Find Exceptional Words  - Press any key to cancel", "_lst.log",
                            "Find Exceptional Words")) {
        return false;
    }
    const CurrentSequence& sequence = session.sequence();
    const CodedSequence coded = EncodeSequence(sequence, sequence.text);
    const int n = SequenceLength(coded);
    if (max_length < 1) max_length = n;
    const MarkovChain chain(coded, sequence.AlphabetSize());
    const WordList words = FindWordsOfSequence(session, coded, max_length);
    if (session.Aborted()) return true;

    WriteLogLine(session, "");
    WriteLogLine(session, "Exceptional Subword List");
    int headed_length = 0;  // the length whose heading has been written
    WriteWordLines(session, words, [&](const WordRecord& word) {
        const int length = word.Length();
        if (length < kShortestWord) return;
        const auto observed = static_cast<float>(static_cast<double>(word.Count()) / (n - length + 1));
        const float predicted = chain.WordProbability(word);
        if (3.0 * predicted > observed) return;
        if (length != headed_length) {
            WriteLogLine(session, "");
            WriteLogLine(session, LengthHeading(length));
            headed_length = length;
        }
        const auto chance = static_cast<float>(static_cast<double>(predicted) / observed);
        // Appended piece by piece: GCC 12 warns falsely (-Wrestrict) on "literal" + temporary string.
        std::string line = "{";
        line.append(WordToText(word, sequence)).append("}\t f =").append(SingleText(observed));
        line.append("\t p =").append(SingleText(predicted)).append("\tChance p/f =").append(SingleText(chance));
        WriteLogLine(session, line);
        if (positions_flag == 0) WriteLogLine(session, PositionsLine(word));
    });
    return true;
}

Outcome RunExceptionalWords(Session& session, int positions_flag) {
    if (ChooseInputSequence(session) == 0) return Outcome::kRefused;
    const auto max_length = AskMaximumWordLength(session, kTitle);
    if (!max_length) return Outcome::kRefused;
    if (*max_length < kShortestWord) {
        session.host().ShowMessage("Length must be > 2", kTitle);
        return Outcome::kRefused;
    }
    return RunTimedAnalysis(session, [&] { return FindExceptionalWords(session, positions_flag, *max_length); });
}

}  // namespace tessarin
