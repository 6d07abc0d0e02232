#include "subwords/block_entropies.h"

#include <algorithm>
#include <cmath>

#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"
#include "subwords/report_writer.h"
#include "subwords/subword_report.h"
#include "subwords/subword_search.h"

namespace tessarin {
namespace {

// H_n, H_n/n and h_(n-1) as the report gives them: each derived in double, stored in single precision.
struct EntropyFigures {
    float block;
    float per_symbol;
    float difference;
};

EntropyFigures FiguresAt(const EntropyTable& table, int n) {
    return {table[n], static_cast<float>(static_cast<double>(table[n]) / n),
            static_cast<float>(static_cast<double>(table[n]) - table[n - 1])};
}

std::string EntropyLine(const EntropyTable& table, int n) {
    const std::string length = std::to_string(n);
    const std::string previous = std::to_string(n - 1);
    const EntropyFigures figures = FiguresAt(table, n);
    return "Entropy H" + length + " =" + SingleText(figures.block) + "\t  H" + length + "/" + length + " =" +
           SingleText(figures.per_symbol) + "\t  H" + length + " - H" + previous + " = h" + previous + " =" +
           SingleText(figures.difference);
}

}  // namespace

EntropyTable ComputeBlockEntropies(std::span<const std::int32_t> sequence, const EntropyParams& params,
                                   const ProgressFn& progress) {
    EntropyTable table(1, 0.0F);
    if (params.max_n < 1) return table;
    SubwordSearch search({sequence}, FindWordsParams{params.max_n, false, params.status_name}, progress);
    const int sequence_length = SequenceLength(sequence);
    while (const SubwordGroup* group = search.NextGroup()) {
        const int n = group->length;
        // f ln f in single precision, from the group's last word to its first: the order of the
        // additions decides the last digits of the report.
        float sum = 0;
        for (auto word = group->words.rbegin(); word != group->words.rend(); ++word) {
            const double f = word->count;
            sum = static_cast<float>(sum + f * std::log(f));
        }
        // Only lengths below the sequence length repeat, so at least two places hold a word of length n.
        const double places = sequence_length - n + 1;
        table.push_back(static_cast<float>((std::log(places) - sum / places) / params.log_base));
    }
    return table;
}

void ReportBlockEntropies(Session& session, const EntropyTable& table) {
    ReportWriter writer(session);
    for (int n = 1; n < static_cast<int>(table.size()); ++n) {
        const std::string line = EntropyLine(table, n);
        session.host().PrintMainLine(line);
        writer.Line(line);
    }
    writer.Close();
}

TsvTable BlockEntropyTable(const EntropyTable& table, const std::filesystem::path& file) {
    TsvTable tsv({"n", "H_n", "H_n/n", "h_(n-1)"}, file);
    for (int n = 1; n < static_cast<int>(table.size()); ++n) {
        const EntropyFigures figures = FiguresAt(table, n);
        tsv.Cell(n).Cell(figures.block).Cell(figures.per_symbol).Cell(figures.difference).EndRow();
    }
    return tsv;
}

Outcome RunBlockEntropies(Session& session, const SubwordParams& params) {
    return RunSubwordCommand(session, params.input, "Subword Entropies", [&] {
        if (!StartSubwordReport(session, "Compute Partial Entropies  - Press any key to cancel", ".log",
                                "Compute Partial Entropies")) {
            return false;
        }
        const CurrentSequence& sequence = session.sequence();
        const CodedSequence coded = Encode(sequence.alphabet, sequence.text);
        const EntropyParams entropy{std::min(params.max_length, SequenceLength(coded) - 1),
                                    LogBase(sequence.AlphabetSize()), FileBaseName(sequence.file_name)};
        const EntropyTable table = ComputeBlockEntropies(coded, entropy, session.Progress());
        ReportBlockEntropies(session, table);
        if (params.table.Wanted() && !session.Aborted()) BlockEntropyTable(table, params.table.file).Finish();
        return true;
    });
}

}  // namespace tessarin
