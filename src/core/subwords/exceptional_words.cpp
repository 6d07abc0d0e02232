#include "subwords/exceptional_words.h"

#include <string>

#include "logfile/number_text.h"
#include "subwords/subword_report.h"
#include "subwords/word_text.h"

namespace tessarin {

// Accumulated in single precision by adding 1/N (1/(N - 1) for pairs) per occurrence.
MarkovChain::MarkovChain(std::span<const std::int32_t> coded, int alphabet_size)
    : side_(static_cast<std::size_t>(alphabet_size) + 1), symbol_(side_, 0.0F), pair_(side_ * side_, 0.0F) {
    const int n = SequenceLength(coded);
    for (int p = 1; p <= n; ++p) {
        float& entry = symbol_[static_cast<std::size_t>(coded[p])];
        entry = static_cast<float>(entry + 1.0 / n);
    }
    for (int p = 1; p < n; ++p) {
        float& entry = pair_[static_cast<std::size_t>(coded[p]) * side_ + static_cast<std::size_t>(coded[p + 1])];
        entry = static_cast<float>(entry + 1.0 / (n - 1));
    }
}

float MarkovChain::Extend(float prefix_probability, std::int32_t before_last, std::int32_t last) const {
    const float pair = pair_[static_cast<std::size_t>(before_last) * side_ + static_cast<std::size_t>(last)];
    const auto joined = static_cast<float>(static_cast<double>(prefix_probability) * pair);
    return static_cast<float>(static_cast<double>(joined) / Symbol(before_last));
}

std::vector<float> WordProbabilities(const SubwordGroup& group, std::span<const float> parent_probabilities,
                                     const MarkovChain& chain, std::span<const std::int32_t> coded) {
    std::vector<float> probabilities;
    probabilities.reserve(group.words.size());
    for (const Subword& word : group.words) {
        const int last = word.at.position + group.length - 1;
        probabilities.push_back(group.length == 1
                                    ? chain.Symbol(coded[last])
                                    : chain.Extend(parent_probabilities[word.parent], coded[last - 1], coded[last]));
    }
    return probabilities;
}

std::vector<ExceptionalWord> ExceptionalWords(const SubwordGroup& group, std::span<const float> probabilities,
                                              int sequence_length) {
    std::vector<ExceptionalWord> exceptional;
    if (group.length < kShortestExceptionalWord) return exceptional;
    for (std::size_t i = 0; i < group.words.size(); ++i) {
        const auto observed =
            static_cast<float>(static_cast<double>(group.words[i].count) / (sequence_length - group.length + 1));
        if (3.0 * probabilities[i] <= observed) exceptional.push_back(ExceptionalWord{i, observed, probabilities[i]});
    }
    return exceptional;
}

Outcome RunExceptionalWords(Session& session, const SubwordParams& params) {
    return RunSubwordCommand(session, params.input, kExceptionalWordsTitle, [&] {
        if (!StartSubwordReport(session, "Find Exceptional Words  - Press any key to cancel", "_lst.log",
                                "Find Exceptional Words")) {
            return false;
        }
        const CurrentSequence& sequence = session.sequence();
        const CodedSequence coded = Encode(sequence.alphabet, sequence.text);
        const int n = SequenceLength(coded);
        const MarkovChain chain(coded, sequence.AlphabetSize());
        // Positions are listed for the few exceptional words only, not kept for every word.
        SubwordSearch search({coded}, SearchOfCurrentSequence(session, params.max_length, false), session.Progress());
        ReportWriter writer(session);
        writer.Line("");
        writer.Line("Exceptional Subword List");
        std::vector<std::string> columns{"length", "word", "count", "f", "p", "p/f"};
        if (params.positions) columns.emplace_back("positions");
        std::optional<TsvTable> table = StartTable(params.table, columns);
        std::vector<float> probabilities;
        ReportGroups(session, search, writer, [&](const SubwordGroup& group) {
            probabilities = WordProbabilities(group, probabilities, chain, coded);
            const std::vector<ExceptionalWord> exceptional = ExceptionalWords(group, probabilities, n);
            return WriteWithProgress(session, exceptional.size(), [&](std::size_t k) {
                // The heading stands only above a length with an exceptional word.
                if (k == 0) {
                    writer.Line("");
                    writer.Line(LengthHeading(group.length));
                }
                const ExceptionalWord& found = exceptional[k];
                const Subword& word = group.words[found.index];
                const auto chance = static_cast<float>(static_cast<double>(found.predicted) / found.observed);
                const std::string_view text = WordToText(sequence, word, group.length);
                std::string line = "{";
                line.append(text).append("}\t f =").append(SingleText(found.observed));
                line.append("\t p =")
                    .append(SingleText(found.predicted))
                    .append("\tChance p/f =")
                    .append(SingleText(chance));
                writer.Line(line);
                const std::vector<Occurrence> occurrences =
                    params.positions ? search.Occurrences(found.index) : std::vector<Occurrence>();
                if (params.positions) writer.Line(PositionsLine(occurrences));
                if (!table) return;
                table->Cell(group.length).Cell(text).Cell(word.count);
                table->Cell(found.observed).Cell(found.predicted).Cell(chance);
                if (params.positions) table->Cell(PositionsCell(occurrences));
                table->EndRow();
            });
        });
        writer.Close();
        FinishTable(session, table);
        return true;
    });
}

}  // namespace tessarin
