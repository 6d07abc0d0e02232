#include "subwords/block_entropies.h"

#include <algorithm>
#include <cmath>

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"
#include "subwords/find_words.h"
#include "subwords/subword_command.h"
#include "subwords/subword_report.h"

namespace tessarin {
namespace {

std::string EntropyLine(const EntropyTable& table, int n) {
    const std::string length = std::to_string(n);
    const std::string previous = std::to_string(n - 1);
    const auto per_symbol = static_cast<float>(static_cast<double>(table[n]) / n);
    const auto difference = static_cast<float>(static_cast<double>(table[n]) - table[n - 1]);
    return "Entropy H" + length + " =" + SingleText(table[n]) + "\t  H" + length + "/" + length + " =" +
           SingleText(per_symbol) + "\t  H" + length + " - H" + previous + " = h" + previous + " =" +
           SingleText(difference);
}

}  // namespace

int ComputeBlockEntropies(std::span<const std::int32_t> sequence, int max_n, double log_base, EntropyTable& table,
                          const std::string& status_name, const ProgressFn& progress) {
    if (max_n < 1) return 0;
    const SequenceSet sequences{sequence};
    WordList words(1);
    FindWords(sequences, words, max_n, status_name, progress);
    const int nmax = std::min(max_n, words.back().Length());
    table.assign(static_cast<std::size_t>(nmax) + 1, 0.0F);

    // Groups are taken by length rather than by the rank of their last word, so that a list cut
    // short by a cancel (whose last group is unranked) still yields the words it holds.
    const int sequence_length = SequenceLength(sequence);
    int i = static_cast<int>(words.size()) - 1;
    for (int n = nmax; n >= 1; --n) {
        for (; i >= 1 && words[i].Length() == n; --i) {
            const double f = words[i].Count();
            table[n] = static_cast<float>(table[n] + f * std::log(f));
        }
        // nmax is below the sequence length, so at least two places hold a word of length n.
        const double places = sequence_length - n + 1;
        table[n] = static_cast<float>((std::log(places) - table[n] / places) / log_base);
    }
    return nmax;
}

bool ReportBlockEntropies(Session& session) {
    if (!StartSubwordReport(session, "Compute Partial Entropies  - Press any key to cancel", ".log",
                            "Compute Partial Entropies")) {
        return false;
    }
    const CurrentSequence& sequence = session.sequence();
    const CodedSequence coded = EncodeSequence(sequence, sequence.text);
    EntropyTable table;
    const int nmax = ComputeBlockEntropies(coded, SequenceLength(coded) - 1, LogBase(sequence.AlphabetSize()), table,
                                           FileBaseName(sequence.file_name), session.Progress());
    for (int n = 1; n <= nmax; ++n)
        PrintLine(session, EntropyLine(table, n));
    return true;
}

Outcome RunBlockEntropies(Session& session) {
    if (ChooseInputSequence(session) == 0) return Outcome::kRefused;
    return RunTimedAnalysis(session, [&] { return ReportBlockEntropies(session); });
}

}  // namespace tessarin
