#include "surrogate/surrogate_statistics.h"

#include <cmath>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_summary.h"
#include "session/clock.h"
#include "subwords/find_words.h"
#include "subwords/subword_report.h"
#include "subwords/word_text.h"
#include "surrogate/ensemble_sums.h"
#include "surrogate/surrogate_command.h"
#include "surrogate/surrogate_measures.h"

namespace tessarin {
namespace {

constexpr int kShortestListedWord = 3;
constexpr int kSurrogatesPerThread = 4;
constexpr const char* kSquared = "\xB2";  // "²" in the program's 8-bit character set

// A counter built into a label, without the blank of a report number: "H3", "#12". (Built by
// appending: GCC 12 warns falsely, -Wrestrict, on a literal + a temporary string.)
std::string CounterLabel(char prefix, int counter) {
    std::string label(1, prefix);
    label += std::to_string(counter);
    return label;
}

// The original's repeated words of length 3 and more, whose frequencies the surrogates are
// compared by.
struct ListedWords {
    std::vector<SubwordGroup> groups;
    std::vector<std::vector<std::int32_t>> symbols;  // every word's symbols, in list order
};

ListedWords RepeatedWords(const CodedSequence& coded, int max_length, const std::string& name,
                          const ProgressFn& progress) {
    FindWordsParams params;
    params.max_length = max_length;
    params.positions = true;
    params.status_name = name;
    ListedWords list;
    for (SubwordGroup& group : FindWords(SequenceSet{coded}, params, progress)) {
        if (group.length < kShortestListedWord) continue;
        for (const Subword& word : group.words) {
            const auto* first = coded.data() + word.at.position;
            list.symbols.emplace_back(first, first + group.length);
        }
        list.groups.push_back(std::move(group));
    }
    return list;
}

// The three lines of a mean: its value, its spread and, when there is a spread, how far the
// original lies from it in spreads. `label` names the value ("H1"); `kind` the average.
void PrintComparison(Session& session, const std::string& kind, const std::string& label, float original,
                     const MeanAndSpread& ensemble) {
    const std::string spread = "SQR(<" + label + kSquared + "> - <" + label + ">" + kSquared + ")";
    PrintLine(session, "Average " + kind + "  <" + label + "> =" + SingleText(ensemble.mean));
    PrintLine(session, "Root Mean Square  " + spread + " =" + SingleText(ensemble.rms));
    if (ensemble.rms != 0) {
        const auto measure =
            static_cast<float>(std::fabs((original - static_cast<double>(ensemble.mean)) / ensemble.rms));
        PrintLine(session, "S Measure  S = |" + label + " - <" + label + ">|/" + spread + " =" + SingleText(measure));
    }
}

void PrintComplexityStatistics(Session& session, float original, const EnsembleSums& sums) {
    const MeanAndSpread ensemble = sums.Complexity();
    const std::string spread = std::string("SQR(<C") + kSquared + "> - <C>" + kSquared + ")";
    PrintLine(session, "");
    PrintLine(session, "Average Surrogate Complexity  <C> =" + SingleText(ensemble.mean));
    PrintLine(session, "Root Mean Square  " + spread + " =" + SingleText(ensemble.rms));
    if (ensemble.rms != 0) {
        const auto measure = static_cast<float>((original - static_cast<double>(ensemble.mean)) / ensemble.rms);
        PrintLine(session, "S Measure  S = (Cm - <C>)/" + spread + " =" + SingleText(measure));
    }
    if (ensemble.mean != 0) {
        const auto redundancy = static_cast<float>(1 - original / static_cast<double>(ensemble.mean));
        PrintLine(session, "Surrogate Redundancy  R = 1 - Cm / <C> =" + SingleText(redundancy));
    }
}

void PrintEntropyStatistics(Session& session, const std::vector<float>& original, const EnsembleSums& sums) {
    PrintLine(session, "");
    for (int l = 1; l < static_cast<int>(original.size()); ++l) {
        const std::string block = CounterLabel('H', l);
        const std::string conditional = CounterLabel('h', l - 1);
        PrintLine(session, "Original Subword Entropy  " + block + " =" + SingleText(original[l]));
        PrintComparison(session, "Subword Entropy", block, original[l], sums.Entropy(l));
        PrintLine(session, "");
        const auto difference = static_cast<float>(static_cast<double>(original[l]) - original[l - 1]);
        PrintLine(session, "Original Conditional Entropy  " + conditional + " =" + SingleText(difference));
        PrintComparison(session, "Conditional Entropy", conditional, difference, sums.ConditionalEntropy(l));
        PrintLine(session, "");
    }
}

// The words whose average frequency in the surrogates is at most a third of their frequency in
// the original. The averages are taken over the surrogates asked for, made or not.
void PrintExceptionalWords(Session& session, const ListedWords& words, const EnsembleSums& sums, int count) {
    PrintLine(session, "");
    PrintLine(session, "");
    PrintLine(session, "Exceptional Subword List");
    PrintLine(session, "f = Frequency in Original Sequence");
    PrintLine(session, "<f> = Average Frequency in Surrogate Ensemble");
    std::size_t index = 0;
    for (const SubwordGroup& group : words.groups) {
        bool headed = false;
        for (const Subword& word : group.words) {
            const auto average = static_cast<float>(sums.WordSum(index++) / count);
            if (3.0 * average > word.count) continue;
            if (!headed) {
                PrintLine(session, "");
                PrintLine(session, LengthHeading(group.length));
                headed = true;
            }
            const auto chance = static_cast<float>(static_cast<double>(average) / word.count);
            std::string line = "{";
            line.append(WordToText(session.sequence(), word, group.length)).append("}\t f =");
            line.append(IntegerText(word.count)).append("\t <f> =").append(SingleText(average));
            line.append("\tChance <f>/f =").append(SingleText(chance));
            PrintLine(session, line);
            PrintLine(session, PositionsLine(word));
        }
    }
}

// Progress for the measuring tasks: the calling thread shows it, the helper threads only learn of
// a cancel, as the host is not theirs to use.
ProgressFn TaskProgress(Session& session) {
    return [&session, caller = std::this_thread::get_id()](const std::string& text, float fraction) {
        if (std::this_thread::get_id() == caller) return session.Busy(text, fraction);
        return session.Aborted();
    };
}

struct EnsembleRun {
    Session& session;
    const SurrogateParams& params;
    const MeasureParams& measure;
    SurrogateShuffler& shuffler;
    EnsembleSums& sums;
    TsvTable* table;  // one row per surrogate measured, when a table is wanted
};

// The table's columns: the surrogate's number, its complexity and, with entropies, H1..H<max>.
std::vector<std::string> SurrogateColumns(const SurrogateParams& params) {
    std::vector<std::string> columns{"surrogate", "C"};
    for (int l = 1; params.entropy && l <= params.max_length; ++l)
        columns.push_back(CounterLabel('H', l));
    return columns;
}

// Draws and measures the surrogates: a batch of them is drawn one after another (the draws stay
// in order whatever the thread count) and then measured in parallel; their lines and sums follow
// in surrogate order. The run ends at a failed pair verification, a user abort or a cancelled
// complexity.
void RunSurrogates(const EnsembleRun& run, int count) {
    Session& session = run.session;
    const int threads = session.threads();
    // Several surrogates per thread even out their differing costs; one thread takes them singly,
    // so that a run on one thread interleaves drawing and measuring as the steps are written.
    const int batch_size = threads == 1 ? 1 : kSurrogatesPerThread * threads;
    const ProgressFn progress = TaskProgress(session);
    int next = 1;
    bool stopped = false;
    while (!stopped && next <= count) {
        std::vector<SurrogateDraw> batch;
        const int first = next;
        while (static_cast<int>(batch.size()) < batch_size && next <= count) {
            SurrogateDraw draw = DrawSurrogate(session, run.shuffler);
            ++next;
            if (!draw.pairs_verified || session.Aborted()) {
                stopped = true;
                break;
            }
            batch.push_back(std::move(draw));
        }
        std::vector<SurrogateMeasures> measures(batch.size());
        ParallelFor(static_cast<int>(batch.size()), threads, [&](int t) {
            measures[t] = MeasureSurrogate(batch[t].sequence, run.measure, CounterLabel('#', first + t), progress);
        });
        for (std::size_t t = 0; t < measures.size(); ++t) {
            if (run.params.entropy) run.sums.AddEntropies(measures[t].entropies);
            if (run.measure.words != nullptr) run.sums.AddWordCounts(measures[t].word_counts);
            if (!measures[t].complexity) {
                stopped = true;
                break;
            }
            run.sums.AddComplexity(*measures[t].complexity);
            PrintLine(session, IntegerText(first + static_cast<int>(t)) +
                                   ". Surrogate\t C  =" + SingleText(*measures[t].complexity));
            if (run.table == nullptr) continue;
            run.table->Cell(first + static_cast<int>(t)).Cell(*measures[t].complexity);
            for (std::size_t l = 1; run.params.entropy && l < measures[t].entropies.size(); ++l)
                run.table->Cell(measures[t].entropies[l]);
            run.table->EndRow();
        }
    }
}

}  // namespace

Outcome RunSurrogateStatistics(Session& session, const SurrogateParams& params) {
    const double start_time = session.Now();
    if (LoadInputSequence(session, params.input) == 0) return Outcome::kRefused;
    CurrentSequence& sequence = session.sequence();
    PrintSurrogateStart(session, "Compute Surrogate Ensemble  - Press any key to cancel", params);
    StartSurrogateLog(session, params, "_set.log", "Surrogate Ensemble of ", true);
    sequence.alphabet = BuildAlphabet(sequence.text);
    const CodedSequence coded = Encode(sequence.alphabet, sequence.text);
    std::optional<SurrogateShuffler> shuffler;
    if (sequence.text.size() >= 2) shuffler = MakeShuffler(session, coded, sequence.AlphabetSize(), params);
    if (!shuffler) {
        session.FinalNote(start_time);
        return Outcome::kRefused;
    }

    const std::string name = FileBaseName(sequence.file_name);
    const ProgressFn progress = session.Progress();
    std::vector<float> entropies;
    if (params.entropy) {
        entropies = EntropyProfile(coded, params.max_length, LogBase(sequence.AlphabetSize()), name, progress);
    }
    ListedWords words;
    std::optional<OccurrenceCounter> counter;
    if (params.exceptional) {
        words = RepeatedWords(coded, params.max_length, name, progress);
        counter.emplace(words.symbols);
    }
    MeasureParams measure{sequence.AlphabetSize(), params.method, params.entropy, params.max_length,
                          counter ? &*counter : nullptr};
    const float original = SequenceComplexity(coded, measure, name, progress).value_or(0.0F);
    // A run cancelled before its surrogates reports the original alone.
    const int count = session.Aborted() ? 0 : params.count;
    PrintLine(session, sequence.Name());
    PrintLine(session, "    Complexity\t Cm =" + SingleText(original));
    PrintLine(session, "");

    EnsembleSums sums(params.entropy ? params.max_length : 0, words.symbols.size());
    std::optional<TsvTable> table;
    if (params.table.Wanted()) table.emplace(SurrogateColumns(params), params.table.file);
    RunSurrogates(EnsembleRun{session, params, measure, *shuffler, sums, table ? &*table : nullptr}, count);
    if (sums.complexities() > 0) PrintComplexityStatistics(session, original, sums);
    if (params.entropy && sums.entropy_profiles() > 0) PrintEntropyStatistics(session, entropies, sums);
    if (params.exceptional && count > 0) PrintExceptionalWords(session, words, sums, count);

    const bool cancelled = session.Aborted();
    if (table && !cancelled) table->Finish();
    session.FinalNote(start_time);
    return cancelled ? Outcome::kCancelled : Outcome::kCompleted;
}

}  // namespace tessarin
