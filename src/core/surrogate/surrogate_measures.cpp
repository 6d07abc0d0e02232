#include "surrogate/surrogate_measures.h"

#include <cmath>

#include "grammar/compress_grammar.h"
#include "sequence/sequence_summary.h"
#include "subwords/block_entropies.h"
#include "surrogate/coded_length.h"

namespace tessarin {

std::vector<float> EntropyProfile(std::span<const std::int32_t> coded, int max_length, double log_base,
                                  const std::string& name, const ProgressFn& progress) {
    std::vector<float> profile = ComputeBlockEntropies(coded, EntropyParams{max_length, log_base, name}, progress);
    const int length = CodedLength(coded);
    for (int l = static_cast<int>(profile.size()); l <= max_length; ++l) {
        const int places = length - l + 1;
        profile.push_back(places > 0 ? static_cast<float>(std::log(places) / log_base) : 0.0F);
    }
    return profile;
}

std::optional<float> SequenceComplexity(std::span<const std::int32_t> coded, const MeasureParams& params,
                                        const std::string& name, const ProgressFn& progress) {
    CompressOptions options;
    options.progress_label = name;
    const GrammarResult result = CompressGrammar(CodedSequence(coded.begin(), coded.end()), params.alphabet_size,
                                                 params.method, options, progress);
    if (result.cancelled) return std::nullopt;
    return static_cast<float>(result.complexity);
}

SurrogateMeasures MeasureSurrogate(std::span<const std::int32_t> coded, const MeasureParams& params,
                                   const std::string& name, const ProgressFn& progress) {
    SurrogateMeasures measures;
    if (params.entropy) {
        measures.entropies = EntropyProfile(coded, params.max_length, LogBase(params.alphabet_size), name, progress);
    }
    if (params.words != nullptr) measures.word_counts = params.words->Count(coded);
    measures.complexity = SequenceComplexity(coded, params, name, progress);
    return measures;
}

}  // namespace tessarin
