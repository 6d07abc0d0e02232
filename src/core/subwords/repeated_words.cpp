#include "subwords/repeated_words.h"

#include "common/safe_sqrt.h"
#include "logfile/number_text.h"
#include "subwords/subword_report.h"
#include "subwords/word_text.h"

namespace tessarin {

DistanceFigures Distances(const Subword& word) {
    float count = 0;
    float sum = 0;
    float sum_of_squares = 0;
    for (std::size_t j = 1; j < word.occurrences.size(); ++j) {
        const double distance = word.occurrences[j].position - word.occurrences[j - 1].position;
        count = static_cast<float>(count + 1.0);
        sum = static_cast<float>(sum + distance);
        sum_of_squares = static_cast<float>(sum_of_squares + distance * distance);
    }
    const auto mean = static_cast<float>(static_cast<double>(sum) / count);
    const auto spread =
        static_cast<float>(SafeSqrt(static_cast<double>(sum_of_squares) / count - static_cast<double>(mean) * mean));
    return {count, mean, spread};
}

std::string DistanceLine(const Subword& word) {
    const DistanceFigures distances = Distances(word);
    if (distances.count == 1) return "Distance =" + SingleText(distances.mean);
    return "Average Distance =" + SingleText(distances.mean) + ", \tr.m.s. =" + SingleText(distances.spread);
}

Outcome RunRepeatedWords(Session& session, const SubwordParams& params) {
    return RunSubwordCommand(session, params.input, kRepeatedWordsTitle, [&] {
        if (!StartSubwordReport(session, "Find Repeated Words  - Press any key to cancel", "_lst.log",
                                "Find Repeated Words")) {
            return false;
        }
        const CurrentSequence& sequence = session.sequence();
        const CodedSequence coded = Encode(sequence.alphabet, sequence.text);
        SubwordSearch search({coded}, SearchOfCurrentSequence(session, params.max_length, params.positions),
                             session.Progress());
        ReportWriter writer(session);
        writer.Line("");
        writer.Line("Subword Frequencies");
        std::vector<std::string> columns{"length", "rank", "word", "count"};
        if (params.positions) columns.insert(columns.end(), {"positions", "mean_distance", "rms_distance"});
        std::optional<TsvTable> table = StartTable(params.table, columns);
        std::string line;
        ReportGroups(session, search, writer, [&](const SubwordGroup& group) {
            return WriteWithProgress(session, group.words.size(), [&](std::size_t i) {
                if (i == 0) {
                    writer.Line("");
                    writer.Line(LengthHeading(group.length));
                }
                const Subword& word = group.words[i];
                const std::string_view text = WordToText(sequence, word, group.length);
                line = IntegerText(word.rank);
                line.append(". f(").append(text).append(") =");
                writer.Line(line.append(IntegerText(word.count)));
                if (table) table->Cell(group.length).Cell(word.rank).Cell(text).Cell(word.count);
                if (params.positions) {
                    writer.Line(PositionsLine(word));
                    writer.Line(DistanceLine(word));
                    if (table) {
                        const DistanceFigures distances = Distances(word);
                        table->Cell(PositionsCell(word.occurrences)).Cell(distances.mean).Cell(distances.spread);
                    }
                }
                if (table) table->EndRow();
            });
        });
        writer.Close();
        FinishTable(session, table);
        return true;
    });
}

}  // namespace tessarin
