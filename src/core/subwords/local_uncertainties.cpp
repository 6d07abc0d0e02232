#include "subwords/local_uncertainties.h"

#include <cmath>
#include <utility>

#include "logfile/number_text.h"
#include "sequence/sequence_summary.h"
#include "subwords/subword_report.h"
#include "subwords/word_text.h"

namespace tessarin {

std::optional<float> LocalUncertainty(const SubwordSearch& search, std::size_t index, int alphabet_size,
                                      double log_base, std::vector<Successor>& successors) {
    search.Successors(index, successors);
    int followed = 0;
    for (const Successor& successor : successors)
        followed += successor.count;
    if (followed <= alphabet_size) return std::nullopt;
    // Summed in single precision in increasing symbol order, which decides the last digit.
    float uncertainty = 0;
    for (const Successor& successor : successors) {
        const double q = static_cast<double>(successor.count) / followed;
        uncertainty = static_cast<float>(uncertainty + -q * std::log(q) / log_base);
    }
    return uncertainty;
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
        std::optional<TsvTable> table = StartTable(params.table, {"length", "rank", "word", "h"});
        std::vector<Successor> successors;
        ReportGroups(session, search, writer, [&](const SubwordGroup& group) {
            bool headed = false;
            // Progress runs over every word of the length, reported or not: counting their
            // successors is most of the work.
            return WriteWithProgress(session, group.words.size(), [&](std::size_t i) {
                const std::optional<float> uncertainty =
                    LocalUncertainty(search, i, alphabet_size, log_base, successors);
                if (!uncertainty) return;
                // The heading stands only above a length with a reported word.
                if (!std::exchange(headed, true)) {
                    writer.Line("");
                    writer.Line(LengthHeading(group.length));
                }
                const Subword& word = group.words[i];
                const std::string_view text = WordToText(sequence, word, group.length);
                std::string line = IntegerText(word.rank);
                line.append(". h(").append(text).append(") =");
                writer.Line(line.append(SingleText(*uncertainty)));
                if (table) table->Cell(group.length).Cell(word.rank).Cell(text).Cell(*uncertainty).EndRow();
            });
        });
        writer.Close();
        FinishTable(session, table);
        return true;
    });
}

}  // namespace tessarin
