#include "subwords/local_uncertainties.h"

#include <cmath>

#include "logfile/number_text.h"
#include "sequence/sequence_summary.h"
#include "subwords/subword_report.h"
#include "subwords/word_text.h"

namespace tessarin {

std::vector<WordUncertainty> LocalUncertainties(const SubwordSearch& search, const SubwordGroup& group,
                                                int alphabet_size, double log_base) {
    std::vector<WordUncertainty> uncertain;
    std::vector<Successor> successors;
    for (std::size_t i = 0; i < group.words.size(); ++i) {
        search.Successors(i, successors);
        int followed = 0;
        for (const Successor& successor : successors)
            followed += successor.count;
        if (followed <= alphabet_size) continue;
        // Summed in single precision in increasing symbol order, which decides the last digit.
        float uncertainty = 0;
        for (const Successor& successor : successors) {
            const double q = static_cast<double>(successor.count) / followed;
            uncertainty = static_cast<float>(uncertainty + -q * std::log(q) / log_base);
        }
        uncertain.push_back(WordUncertainty{i, uncertainty});
    }
    return uncertain;
}

Outcome RunLocalUncertainties(Session& session, const SubwordParams& params) {
    return RunSubwordCommand(session, params.input, "Local Conditional Uncertainties", [&] {
        if (!StartSubwordReport(session, "Compute Local Conditional Uncertainties - Press any key to cancel",
                                "_lst.log", "Compute Local Conditional Uncertainties")) {
            return false;
        }
        const CurrentSequence& sequence = session.sequence();
        const int alphabet_size = sequence.AlphabetSize();
        const double log_base = LogBase(alphabet_size);
        const CodedSequence coded = Encode(sequence.alphabet, sequence.text);
        SubwordSearch search({coded}, SearchOfCurrentSequence(session, params.max_length, false), session.Progress());
        ReportWriter writer(session);
        writer.Line("");
        writer.Line("Local Conditional Uncertainties");
        ReportGroups(session, search, writer, [&](const SubwordGroup& group) {
            const std::vector<WordUncertainty> uncertain = LocalUncertainties(search, group, alphabet_size, log_base);
            return WriteWithProgress(session, uncertain.size(), [&](std::size_t k) {
                // The heading stands only above a length with a reported word.
                if (k == 0) {
                    writer.Line("");
                    writer.Line(LengthHeading(group.length));
                }
                const Subword& word = group.words[uncertain[k].index];
                std::string line = IntegerText(word.rank);
                line.append(". h(").append(WordToText(sequence, word, group.length)).append(") =");
                writer.Line(line.append(SingleText(uncertain[k].uncertainty)));
            });
        });
        writer.Close();
        return true;
    });
}

}  // namespace tessarin
