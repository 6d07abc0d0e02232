#include "subwords/repeated_words.h"

#include <cmath>

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "subwords/subword_command.h"
#include "subwords/subword_report.h"
#include "subwords/word_text.h"

namespace tessarin {
namespace {

constexpr const char* kTitle = "Repeated Subwords";

// The line on the distances between consecutive occurrences: count, sum and sum of squares are
// kept in single precision; the spread is the population r.m.s. about the mean.
std::string DistanceLine(const WordRecord& word) {
    float count = 0;
    float sum = 0;
    float sum_of_squares = 0;
    for (int j = 2; j <= word.Count(); ++j) {
        const double distance = word.positions[j].position - word.positions[j - 1].position;
        count = static_cast<float>(count + 1.0);
        sum = static_cast<float>(sum + distance);
        sum_of_squares = static_cast<float>(sum_of_squares + distance * distance);
    }
    const auto mean = static_cast<float>(static_cast<double>(sum) / count);
    if (count == 1) return "Distance =" + SingleText(mean);
    const auto spread =
        static_cast<float>(SafeSqrt(static_cast<double>(sum_of_squares) / count - static_cast<double>(mean) * mean));
    return "Average Distance =" + SingleText(mean) + ", \tr.m.s. =" + SingleText(spread);
}

}  // namespace

double SafeSqrt(double x) {
    return x < 0 ? 0 : std::sqrt(x);
}

bool FindRepeatedWords(Session& session, int positions_flag, int max_length) {
    if (!StartSubwordReport(session, "Find Repeated Words  - Press any key to cancel", "_lst.log",
                            "Find Repeated Words")) {
        return false;
    }
    const CurrentSequence& sequence = session.sequence();
    const CodedSequence coded = EncodeSequence(sequence, sequence.text);
    if (max_length == 0) max_length = SequenceLength(coded);
    const WordList words = FindWordsOfSequence(session, coded, max_length);
    if (session.Aborted()) return true;

    WriteLogLine(session, "");
    WriteLogLine(session, "Subword Frequencies");
    int previous_length = 0;
    WriteWordLines(session, words, [&](const WordRecord& word) {
        if (word.Length() != previous_length) {
            previous_length = word.Length();
            WriteLogLine(session, "");
            WriteLogLine(session, LengthHeading(previous_length));
        }
        WriteLogLine(session, IntegerText(word.Rank()) + ". f(" + WordToText(word, sequence) +
                                  ") =" + IntegerText(word.Count()));
        if (positions_flag != 0) return;
        WriteLogLine(session, PositionsLine(word));
        WriteLogLine(session, DistanceLine(word));
    });
    return true;
}

Outcome RunRepeatedWords(Session& session, int positions_flag) {
    if (ChooseInputSequence(session) == 0) return Outcome::kRefused;
    const auto max_length = AskMaximumWordLength(session, kTitle);
    if (!max_length) return Outcome::kRefused;
    return RunTimedAnalysis(session, [&] { return FindRepeatedWords(session, positions_flag, *max_length); });
}

}  // namespace tessarin
