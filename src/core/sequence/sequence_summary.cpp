#include "sequence/sequence_summary.h"

#include <array>
#include <cmath>
#include <string>

#include "logfile/log_file.h"
#include "logfile/number_text.h"

namespace tessarin {

double LogBase(int alphabet_size) {
    return alphabet_size >= 2 ? std::log(alphabet_size) : std::log(2.0);
}

SequenceSummary SummarizeSequence(std::string_view text) {
    SequenceSummary summary;
    summary.length = static_cast<std::int64_t>(text.size());
    summary.alphabet = BuildAlphabet(text);
    if (text.empty()) return summary;
    std::array<std::int64_t, 256> counts{};
    for (const char c : text)
        ++counts[static_cast<unsigned char>(c)];
    // H1 is a single-precision value: each probability and each partial sum is rounded to it, which
    // decides the last digit the report shows; the quotient itself is formed in double precision.
    const double log_base = LogBase(summary.alphabet.Size());
    for (const unsigned char letter : summary.alphabet.letters) {
        const auto p = static_cast<float>(static_cast<double>(counts[letter]) / static_cast<double>(summary.length));
        summary.entropy =
            static_cast<float>(summary.entropy - static_cast<double>(p) * std::log(static_cast<double>(p)) / log_base);
    }
    return summary;
}

void ReportSequenceSummary(Session& session, const SequenceSummary& summary) {
    const Alphabet& alphabet = summary.alphabet;
    PrintLine(session, "Sequence Length =" + IntegerText(summary.length));
    PrintLine(session, "Alphabet Size =" + IntegerText(alphabet.Size()) + " letters");
    PrintLine(session, "Alphabet: " + std::string(alphabet.letters.begin(), alphabet.letters.end()));
    PrintLine(session, "");
    PrintLine(session, "Entropy H1 = - Sum P*Log(P) =" + SingleText(summary.entropy));
}

void SetAlphabetAndReport(Session& session) {
    CurrentSequence& sequence = session.sequence();
    if (sequence.text.empty()) return;
    const SequenceSummary summary = SummarizeSequence(sequence.text);
    sequence.alphabet = summary.alphabet;
    ReportSequenceSummary(session, summary);
}

}  // namespace tessarin
