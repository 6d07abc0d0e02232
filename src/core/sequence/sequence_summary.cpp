#include "sequence/sequence_summary.h"

#include <cmath>
#include <cstdint>
#include <vector>

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/alphabet.h"

namespace tessarin {

double LogBase(int alphabet_size) {
    return alphabet_size >= 2 ? std::log(alphabet_size) : std::log(2.0);
}

int SequenceSummary(Session& session, const std::string& text, bool report) {
    const std::int64_t n = static_cast<std::int64_t>(text.size());
    if (n == 0) return 0;
    std::vector<std::int64_t> counts(256, 0);
    for (const char c : text)
        ++counts[static_cast<unsigned char>(c)];
    CurrentSequence& sequence = session.sequence();
    BuildAlphabet(counts, sequence);
    const int k = sequence.AlphabetSize();
    if (!report) return k;

    PrintLine(session, "Sequence Length =" + IntegerText(n));
    PrintLine(session, "Alphabet Size =" + IntegerText(k) + " letters");
    PrintLine(session, "Alphabet: " + std::string(sequence.alphabet.begin() + 1, sequence.alphabet.end()));
    PrintLine(session, "");

    // H1 in single precision, as it has always been reported.
    const double log_base = LogBase(k);
    float entropy = 0;
    for (int symbol = 1; symbol <= k; ++symbol) {
        const float p = static_cast<float>(static_cast<double>(counts[sequence.alphabet[symbol]]) / n);
        if (p != 0)
            entropy =
                static_cast<float>(entropy - static_cast<double>(p) * std::log(static_cast<double>(p)) / log_base);
    }
    PrintLine(session, "Entropy H1 = - Sum P*Log(P) =" + SingleText(entropy));
    return k;
}

}  // namespace tessarin
