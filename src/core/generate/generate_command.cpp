#include "generate/generate_command.h"

#include "generate/discretise_series.h"
#include "generate/generate_series.h"
#include "generate/number_file_writer.h"
#include "generate/number_series_reader.h"
#include "sequence/sequence_file_writer.h"

namespace tessarin {
namespace {

Outcome Cancelled(Session& session, double start_time) {
    session.FinalNote(start_time);
    return Outcome::kCancelled;
}

}  // namespace

std::filesystem::path GenerateOutputFolder(Session& session) {
    std::filesystem::path& folder = session.sequence().folder;
    if (folder.empty()) folder = session.program_folder();
    return folder;
}

Outcome RunGenerateOrDiscretize(Session& session, const GenerateParams& params, GenerateState& state) {
    const double start_time = session.Now();
    GenerateParams checked = params;
    std::optional<NumberSeries> series;
    if (params.mode == GenerateMode::kDiscretiseFile) {
        series = ReadNumberSeries(params.series_file, session.Progress());
        if (!series) return Cancelled(session, start_time);
        checked.length = series->statistics.count;
    }
    if (const auto refusal = GenerateSettingsRefusal(checked)) throw GenerateSettingsError(*refusal);
    if (params.mode == GenerateMode::kGenerate) {
        series = GenerateSeries(params, session.random(), state.gaussian, session.Progress());
        if (!series) return Cancelled(session, start_time);
    }
    state.series = std::move(*series);
    state.thresholds.clear();

    const std::vector<float>& values = state.series.values;
    if (params.format == OutputFormat::kNumbers) {
        WriteNumberFile(params.output_path, values);
    } else {
        const auto symbols = DiscretiseSeries(values, state.series.statistics, params.alphabet_size, params.partition,
                                              session.Progress());
        if (!symbols) return Cancelled(session, start_time);
        SetDiscretisedSequence(session.sequence(), *symbols);
        state.thresholds = symbols->thresholds;
        WriteSequenceFile(
            params.output_path, symbols->text,
            params.format == OutputFormat::kSymbolsPerLine ? SequenceLayout::kSymbolPerLine : SequenceLayout::kOneLine);
    }
    session.host().ShowFile(params.output_path);
    session.FinalNote(start_time);
    return Outcome::kCompleted;
}

}  // namespace tessarin
