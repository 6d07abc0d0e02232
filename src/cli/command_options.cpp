#include "cli/command_options.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <string_view>

#include "generate/sequence_edit.h"
#include "sequence/alphabet.h"
#include "sequence/sequence_reading.h"
#include "subwords/exceptional_words.h"

namespace tessarin {
namespace {

using enum CommandInput;

constexpr const char* kMethods = "nvogram|shortest|longest|gain";
constexpr const char* kPreserve = "symbols|pairs|triples";
constexpr const char* kGenerateOptions =
    "[--format numbers|symbols-per-line|symbols-one-line] [--alphabet K] "
    "[--partition equal-frequency|equal-intervals|rms] [--logistic-r R] [--period T] [--bernoulli-n N] "
    "[--bernoulli-p P] [--out FILE] [--plot FILE.png|FILE.svg]";
constexpr const char* kSources =
    "white|exponential|gaussian|logistic|henon-x|henon-y|lorenz-x|lorenz-y|lorenz-z|sine|bernoulli";

// A keyword of an option and what it stands for.
template <typename Value>
struct Choice {
    std::string_view word;
    Value value;
};

template <typename Value, std::size_t N>
Value Choose(const std::string& option, const std::string& word, const std::array<Choice<Value>, N>& choices,
             const char* listing) {
    for (const Choice<Value>& choice : choices) {
        if (choice.word == word) return choice.value;
    }
    std::string words = listing;
    for (std::size_t at; (at = words.find('|')) != std::string::npos;)
        words.replace(at, 1, ", ");
    const std::size_t last = words.rfind(", ");
    if (last != std::string::npos) words.replace(last, 2, " or ");
    throw UsageError(option + " takes " + words + ", not '" + word + "'");
}

constexpr std::array<Choice<Method>, 4> kMethodChoices{{
    {"nvogram", Method::kNvogram},
    {"shortest", Method::kShortestFirst},
    {"longest", Method::kLongestFirst},
    {"gain", Method::kMaximumGain},
}};
constexpr std::array<Choice<Preserve>, 3> kPreserveChoices{{
    {"symbols", Preserve::kSymbols},
    {"pairs", Preserve::kPairs},
    {"triples", Preserve::kTriples},
}};
struct SourceChoice {
    SignalSource source;
    int coordinate;
};
constexpr std::array<Choice<SourceChoice>, 11> kSourceChoices{{
    {"white", {SignalSource::kWhiteNoise, 0}},
    {"exponential", {SignalSource::kExponentialNoise, 0}},
    {"gaussian", {SignalSource::kGaussianNoise, 0}},
    {"logistic", {SignalSource::kLogisticMap, 0}},
    {"henon-x", {SignalSource::kHenonMap, 0}},
    {"henon-y", {SignalSource::kHenonMap, 1}},
    {"lorenz-x", {SignalSource::kLorenzSystem, 0}},
    {"lorenz-y", {SignalSource::kLorenzSystem, 1}},
    {"lorenz-z", {SignalSource::kLorenzSystem, 2}},
    {"sine", {SignalSource::kSineWave, 0}},
    {"bernoulli", {SignalSource::kBernoulli, 0}},
}};
constexpr std::array<Choice<OutputFormat>, 3> kFormatChoices{{
    {"numbers", OutputFormat::kNumbers},
    {"symbols-per-line", OutputFormat::kSymbolsPerLine},
    {"symbols-one-line", OutputFormat::kSymbolsInOneLine},
}};
constexpr std::array<Choice<Partition>, 3> kPartitionChoices{{
    {"equal-frequency", Partition::kEqualFrequency},
    {"equal-intervals", Partition::kEqualIntervals},
    {"rms", Partition::kMultiplesOfRms},
}};

long long ParseInteger(const std::string& option, const std::string& text) {
    long long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw UsageError(option + " takes a whole number, not '" + text + "'");
    }
    return value;
}

float ParseNumber(const std::string& option, const std::string& text) {
    float value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw UsageError(option + " takes a number, not '" + text + "'");
    }
    return value;
}

int ParseCount(const std::string& option, const std::string& text) {
    const long long value = ParseInteger(option, text);
    if (value < 0 || value > 2147483647) throw UsageError(option + " takes a whole number from 0 up");
    return static_cast<int>(value);
}

// As a file dialog answers: absolute, so that the report headers name the file as the desktop does.
std::filesystem::path Absolute(const std::string& file) {
    return std::filesystem::absolute(file).lexically_normal();
}

// An edit's output: the name given, or the name its save dialog proposes, beside the input.
std::filesystem::path EditOutput(const std::string& out, const std::filesystem::path& input) {
    if (!out.empty()) return Absolute(out);
    return input.parent_path() / EditOutputName(input.filename().string());
}

}  // namespace

CLI::Option* CommandOptions::Add(CLI::App& app, const std::string& name, std::string& value) {
    return app.add_option(name, value);
}

CommandOptions::CommandOptions(CLI::App& app, const CommandRow& row) : row_(row) {
    const CommandInput input = row.input;
    switch (input) {
        case kSubwordFile:
            Add(app, "--max-length", max_length_);
            Add(app, "--tsv", tsv_);
            break;
        case kRepeatedWords:
        case kExceptionalWords:
            app.add_flag("--positions", positions_);
            Add(app, "--max-length", max_length_);
            Add(app, "--tsv", tsv_);
            break;
        case kGrammar:
            app.add_flag("--folder", folder_);
            Add(app, "--method", method_);
            Add(app, "--tsv", tsv_);
            break;
        case kSurrogateStatistics:
            Add(app, "--method", method_);
            app.add_flag("--entropy", entropy_);
            app.add_flag("--exceptional", exceptional_);
            Add(app, "--max-length", max_length_);
            Add(app, "--tsv", tsv_);
            [[fallthrough]];
        case kSurrogateFiles:
            Add(app, "--count", count_)->required();
            Add(app, "--preserve", preserve_);
            app.add_flag("--uniform", uniform_);
            break;
        case kFolder:
            Add(app, "--newick", newick_);
            Add(app, "--phylip", phylip_);
            Add(app, "--tsv", tsv_);
            break;
        case kGenerate:
            Add(app, "--source", source_)->required();
            Add(app, "--length", length_)->required();
            [[fallthrough]];
        case kDiscretize:
            Add(app, "--format", format_);
            Add(app, "--alphabet", alphabet_);
            Add(app, "--partition", partition_);
            Add(app, "--logistic-r", logistic_r_);
            Add(app, "--period", period_);
            Add(app, "--bernoulli-n", bernoulli_n_);
            Add(app, "--bernoulli-p", bernoulli_p_);
            Add(app, "--out", out_);
            Add(app, "--plot", plot_);
            break;
        case kChangeAlphabet:
            Add(app, "--to", to_)->required();
            Add(app, "--out", out_);
            break;
        case kKeepLetters:
            Add(app, "--letters", letters_)->required();
            Add(app, "--out", out_);
            break;
        case kFractionate:
            Add(app, "--ranges", ranges_)->required();
            Add(app, "--out", out_);
            break;
        case kDesktopOnly:
        case kNothing:
        case kSequenceFile:
        case kTwoFiles:
            break;
    }
    if (input != kDesktopOnly && input != kNothing && input != kGenerate && input != kDiscretize) {
        app.add_flag("--fasta", fasta_, "read the sequence files as FASTA whatever their names");
        app.add_flag("--upper", upper_, "fold lower-case (soft-masked) letters to capitals");
        if (input != kFolder && input != kTwoFiles) {
            app.add_option("--record", record_, "the FASTA record to analyse: its ID or number");
        }
    }
    const int file_count = input == kNothing || input == kGenerate ? 0 : input == kTwoFiles ? 2 : 1;
    if (file_count > 0) app.add_option("FILE", files_)->expected(file_count)->required();
}

std::string CommandOptions::Usage(const CommandRow& row) {
    const std::string name = row.cli_name;
    switch (row.input) {
        case kSubwordFile:
            return name + " [--max-length N] [--tsv FILE] FILE";
        case kRepeatedWords:
        case kExceptionalWords:
            return name + " [--positions] [--max-length N] [--tsv FILE] FILE";
        case kGrammar:
            return name + " [--folder [--tsv FILE]] [--method " + kMethods + "] FILE";
        case kSurrogateFiles:
            return name + " --count N [--preserve " + kPreserve + "] [--uniform] FILE";
        case kSurrogateStatistics:
            return name + " --count N [--preserve " + kPreserve + "] [--uniform] [--method " + kMethods +
                   "] [--entropy] [--exceptional] [--max-length N] [--tsv FILE] FILE";
        case kTwoFiles:
            return name + " FILE1 FILE2";
        case kFolder:
            return name + " [--newick FILE] [--phylip FILE] [--tsv FILE] FILE";
        case kGenerate:
            return name + " --source " + kSources + " --length N " + kGenerateOptions;
        case kDiscretize:
            return name + " " + kGenerateOptions + " SERIESFILE";
        case kChangeAlphabet:
            return name + " --to LETTERS [--out FILE] FILE";
        case kKeepLetters:
            return name + " --letters LETTERS [--out FILE] FILE";
        case kFractionate:
            return name + " --ranges \"1 - 3, 8 - 10\" [--out FILE] FILE";
        case kSequenceFile:
            return name + " FILE";
        case kDesktopOnly:
        case kNothing:
            break;
    }
    return name;
}

std::filesystem::path CommandOptions::PlotPath() const {
    return plot_.empty() ? std::filesystem::path() : Absolute(plot_);
}

SequenceReading CommandOptions::Reading() const {
    return SequenceReading{fasta_, record_, upper_};
}

CommandParams CommandOptions::Params() const {
    CommandParams params;
    for (const std::string& file : files_) {
        if (file.empty()) throw UsageError(std::string(row_.cli_name) + " needs a file name, not an empty word");
    }
    if (!files_.empty()) params.input = Absolute(files_[0]);
    const TableOutput table{tsv_.empty() ? std::filesystem::path() : Absolute(tsv_)};
    const Method method = method_.empty() ? Method::kNvogram : Choose("--method", method_, kMethodChoices, kMethods);
    std::optional<int> max_length;
    if (!max_length_.empty()) {
        if (ParseInteger("--max-length", max_length_) < 1)
            throw UsageError("--max-length takes a whole number from 1 up");
        max_length = ParseCount("--max-length", max_length_);
    }
    switch (row_.input) {
        case kSubwordFile:
        case kRepeatedWords:
            params.subwords.max_length = max_length.value_or(kNoLengthLimit);
            params.subwords.positions = positions_;
            params.subwords.table = table;
            break;
        case kExceptionalWords:
            params.subwords.max_length = kNoLengthLimit;
            params.subwords.positions = positions_;
            params.subwords.table = table;
            if (max_length) {
                const MaximumLengthAnswer checked = ParseMaximumWordLength(max_length_, kShortestExceptionalWord);
                if (!checked.max_length) throw RefusedInput(checked.refusal);
                params.subwords.max_length = *checked.max_length;
            }
            break;
        case kGrammar:
            params.grammar.method = method;
            params.grammar.all_files = folder_;
            if (folder_ && !record_.empty()) throw UsageError("--record does not go with --folder");
            // A single file's report is its grammar, which is no table.
            if (!tsv_.empty() && !folder_) throw UsageError("--tsv needs --folder");
            params.grammar.table = table;
            break;
        case kSurrogateFiles:
        case kSurrogateStatistics: {
            SurrogateParams& surrogate = params.surrogate;
            surrogate.count = ParseCount("--count", count_);
            if (surrogate.count < 1) throw RefusedInput("Surrogate Count < 1");
            surrogate.preserve =
                preserve_.empty() ? Preserve::kSymbols : Choose("--preserve", preserve_, kPreserveChoices, kPreserve);
            surrogate.uniform = uniform_;
            surrogate.entropy = entropy_;
            surrogate.exceptional = exceptional_;
            surrogate.method = method;
            surrogate.table = table;
            // As the options form proposes it: longer words for the levels that keep more.
            surrogate.max_length = max_length.value_or(3 + static_cast<int>(surrogate.preserve));
            break;
        }
        case kTwoFiles:
            params.distance.first = Absolute(files_[0]);
            params.distance.second = Absolute(files_[1]);
            break;
        case kFolder:
            params.tree.file = params.input;
            if (!newick_.empty()) params.tree.newick = Absolute(newick_);
            if (!phylip_.empty()) params.tree.phylip = Absolute(phylip_);
            if (!tsv_.empty()) params.tree.tsv = Absolute(tsv_);
            params.tree.explain_refusal = true;
            break;
        case kGenerate:
        case kDiscretize: {
            GenerateParams& generate = params.generate;
            if (row_.input == kGenerate) {
                const SourceChoice source = Choose("--source", source_, kSourceChoices, kSources);
                generate.source = source.source;
                generate.coordinate = source.coordinate;
                generate.length = ParseCount("--length", length_);
            } else {
                generate.mode = GenerateMode::kDiscretiseFile;
                generate.series_file = params.input;
            }
            if (!format_.empty())
                generate.format =
                    Choose("--format", format_, kFormatChoices, "numbers|symbols-per-line|symbols-one-line");
            if (!alphabet_.empty()) generate.alphabet_size = ParseCount("--alphabet", alphabet_);
            if (!partition_.empty()) {
                generate.partition =
                    Choose("--partition", partition_, kPartitionChoices, "equal-frequency|equal-intervals|rms");
            }
            if (!logistic_r_.empty()) generate.logistic_r = ParseNumber("--logistic-r", logistic_r_);
            if (!period_.empty()) generate.sine_period = ParseNumber("--period", period_);
            if (!bernoulli_n_.empty()) generate.bernoulli_n = ParseCount("--bernoulli-n", bernoulli_n_);
            if (!bernoulli_p_.empty()) generate.bernoulli_p = ParseNumber("--bernoulli-p", bernoulli_p_);
            if (const auto refusal = GenerateSettingsRefusal(generate)) throw RefusedInput(*refusal);
            generate.output_path = out_.empty() ? Absolute(ProposedOutputName(generate)) : Absolute(out_);
            break;
        }
        case kChangeAlphabet: {
            const std::string text = ReadSequence(params.input, Reading()).text;
            const Alphabet alphabet = BuildAlphabet(text);
            const CheckedAnswer<std::string> checked =
                CheckNewAlphabet(std::string(alphabet.letters.begin(), alphabet.letters.end()), to_);
            if (!checked.value)
                throw RefusedInput(checked.refusal.empty() ? "--to needs the new letters" : checked.refusal);
            params.change_alphabet.new_alphabet = *checked.value;
            params.change_alphabet.output_path = EditOutput(out_, params.input);
            break;
        }
        case kKeepLetters:
            if (letters_.empty()) throw UsageError("--letters needs the letters to keep");
            params.keep_letters.kept_letters = letters_;
            params.keep_letters.output_path = EditOutput(out_, params.input);
            break;
        case kFractionate: {
            const int length = static_cast<int>(ReadSequence(params.input, Reading()).text.size());
            const CheckedAnswer<std::vector<Fraction>> checked = ParseFractions(ranges_, length);
            if (!checked.value)
                throw RefusedInput(checked.refusal.empty() ? "--ranges needs position ranges" : checked.refusal);
            params.fractionate.fractions = *checked.value;
            params.fractionate.output_path = EditOutput(out_, params.input);
            break;
        }
        case kDesktopOnly:
        case kNothing:
        case kSequenceFile:
            break;
    }
    return params;
}

}  // namespace tessarin
