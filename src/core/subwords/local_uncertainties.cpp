#include "subwords/local_uncertainties.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"
#include "subwords/find_words.h"
#include "subwords/subword_command.h"
#include "subwords/subword_report.h"
#include "subwords/word_text.h"

namespace tessarin {

bool ComputeLocalUncertainties(Session& session) {
    if (!StartSubwordReport(session, "Compute Local Conditional Uncertainties - Press any key to cancel", "_lst.log",
                            "Compute Local Conditional Uncertainties")) {
        return false;
    }
    const CurrentSequence& sequence = session.sequence();
    const int alphabet_size = sequence.AlphabetSize();
    const double log_base = LogBase(alphabet_size);
    const CodedSequence coded = EncodeSequence(sequence, sequence.text);
    const int n = SequenceLength(coded);
    const WordList words = FindWordsOfSequence(session, coded, kNoLengthLimit);
    if (session.Aborted()) return true;

    WriteLogLine(session, "");
    WriteLogLine(session, "Local Conditional Uncertainties");
    // Entry b counts the occurrences followed by symbol b, entry 0 all that are followed at all.
    std::vector<int> successor_counts(static_cast<std::size_t>(alphabet_size) + 1);
    int heading_length = 0;  // the length whose heading is still to be written, 0 when written
    int previous_length = 0;
    WriteWordLines(session, words, [&](const WordRecord& word) {
        const int length = word.Length();
        if (length != previous_length) heading_length = length;
        previous_length = length;
        std::fill(successor_counts.begin(), successor_counts.end(), 0);
        for (int j = 1; j <= word.Count(); ++j) {
            const int p = word.positions[j].position;
            if (p + length > n) continue;
            ++successor_counts[coded[p + length]];
            ++successor_counts[0];
        }
        if (successor_counts[0] <= alphabet_size) return;
        float uncertainty = 0;
        for (int b = 1; b <= alphabet_size; ++b) {
            if (successor_counts[b] == 0) continue;
            const double q = static_cast<double>(successor_counts[b]) / successor_counts[0];
            uncertainty = static_cast<float>(uncertainty + -q * std::log(q) / log_base);
        }
        if (heading_length != 0) {
            WriteLogLine(session, "");
            WriteLogLine(session, LengthHeading(heading_length));
            heading_length = 0;
        }
        WriteLogLine(session,
                     IntegerText(word.Rank()) + ". h(" + WordToText(word, sequence) + ") =" + SingleText(uncertainty));
    });
    return true;
}

Outcome RunLocalUncertainties(Session& session) {
    if (ChooseInputSequence(session) == 0) return Outcome::kRefused;
    return RunTimedAnalysis(session, [&] { return ComputeLocalUncertainties(session); });
}

}  // namespace tessarin
