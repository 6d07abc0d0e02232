#include "generate/generate_params.h"

#include "sequence/sequence_file.h"

namespace tessarin {

std::optional<std::string> GenerateSettingsRefusal(const GenerateParams& params) {
    if (params.length < 2) return "Sequence Length < 2";
    if (params.alphabet_size < 2) return "Alphabet Size < 2";
    if (params.alphabet_size > kMaxAlphabetSize) return "Alphabet Size > 223";
    if (!(params.logistic_r > 0)) return "Logistic R <= 0";
    if (params.logistic_r > 4) return "Logistic R > 4";
    if (params.bernoulli_n < 0) return "Bernoulli n < 0";
    if (!(params.bernoulli_p > 0)) return "Bernoulli p <= 0";
    if (params.bernoulli_p >= 1) return "Bernoulli p >= 1";
    const int coordinates = CoordinateCount(params.source);
    if (coordinates > 1 && (params.coordinate < 0 || params.coordinate >= coordinates)) return "No Such Coordinate";
    return std::nullopt;
}

std::string ProposedOutputName(const GenerateParams& params) {
    std::string name = params.mode == GenerateMode::kDiscretiseFile
                           ? FileBaseName(params.series_file.filename().string())
                           : SourceFileWord(params.source);
    // Appended piece by piece: GCC 12 warns falsely (-Wrestrict) on "literal" + temporary string.
    if (params.format != OutputFormat::kNumbers)
        name.append("(").append(std::to_string(params.alphabet_size)).append(")");
    return name.append(".txt");
}

}  // namespace tessarin
