#include "ui/command_inputs.h"

#include <QAction>
#include <QMessageBox>

#include "generate/generate_command.h"
#include "generate/sequence_edit.h"
#include "logfile/log_file.h"
#include "sequence/alphabet.h"
#include "sequence/sequence_file.h"
#include "sequence/sequence_reading.h"
#include "subwords/exceptional_words.h"
#include "subwords/repeated_words.h"
#include "surrogate/surrogate_options.h"
#include "ui/file_dialog.h"
#include "ui/generate_form.h"
#include "ui/grammar_form.h"
#include "ui/qt_text.h"
#include "ui/record_dialog.h"
#include "ui/surrogate_form.h"

namespace tessarin {
namespace {

using enum CommandInput;

// The open-file dialog at the sequence folder (the program's folder at first).
std::optional<std::filesystem::path> ChooseInput(QWidget* parent, Session& session, const char* filter = "*.txt") {
    CurrentSequence& sequence = session.sequence();
    const std::filesystem::path& folder = sequence.folder.empty() ? session.program_folder() : sequence.folder;
    const auto choice = ChooseFileWithDialog(parent, FileDialogKind::kOpen, folder / sequence.file_name, filter);
    if (!choice) return std::nullopt;
    // The next dialog starts where this one ended, whatever the command then makes of the file.
    sequence.folder = choice->parent_path();
    sequence.file_name = choice->filename().string();
    return choice;
}

// How the command will read its sequence files: folded to capitals while the File menu says so,
// and for a single-sequence command the record picked from a file of several. False when the
// user cancels the pick.
bool ChooseReading(QWidget* parent, Session& session, const std::filesystem::path& file, bool ask_record) {
    SequenceReading& reading = session.sequence().reading;
    const auto* fold = parent == nullptr ? nullptr : parent->findChild<QAction*>(kFoldCapitalsItem);
    reading.fold_to_capitals = fold != nullptr && fold->isChecked();
    reading.record.clear();
    if (!ask_record) return true;
    const auto record = AskRecord(parent, file, reading.fasta);
    if (!record) return false;
    reading.record = *record;
    return true;
}

// The sequence that a question proposes from (its length or letters); a file that cannot be read
// is named in a message box and ends the command.
std::optional<std::string> ReadForQuestion(QWidget* parent, Session& session, const std::filesystem::path& file) {
    try {
        return ReadSequence(file, session.sequence().reading).text;
    } catch (const SequenceFileError& error) {
        QMessageBox::information(parent, kMessageTitle, FromDisplayText(error.what()));
        return std::nullopt;
    }
}

std::optional<std::filesystem::path> ChooseOutput(QWidget* parent, const std::filesystem::path& proposed) {
    return ChooseFileWithDialog(parent, FileDialogKind::kSave, proposed, "*.txt");
}

// "Specify Maximum Word Length", proposing the sequence's length; a refused answer ends the command.
std::optional<int> AskMaximumLength(QWidget* parent, Session& session, const std::filesystem::path& input,
                                    const char* title, int shortest_length) {
    const auto text = ReadForQuestion(parent, session, input);
    if (!text) return std::nullopt;
    const auto answer = session.host().AskInput(kMaximumLengthPrompt, title, std::to_string(text->size()));
    if (!answer) return std::nullopt;
    const MaximumLengthAnswer checked = ParseMaximumWordLength(*answer, shortest_length);
    if (!checked.refusal.empty()) QMessageBox::information(parent, title, FromDisplayText(checked.refusal));
    return checked.max_length;
}

SurrogateParams SurrogateParamsOf(const FormSettings& settings, Method method) {
    SurrogateParams params;
    params.count = settings.surrogate_count;
    params.preserve = PreserveFromOptions(settings.surrogate_options);
    params.uniform = (settings.surrogate_options & kShuffleAllVertices) != 0;
    params.entropy = (settings.surrogate_options & kAddEntropy) != 0;
    params.exceptional = (settings.surrogate_options & kAddExceptionalWords) != 0;
    params.max_length = settings.surrogate_max_length;
    params.method = method;
    return params;
}

bool AskSurrogateSettings(QWidget* parent, FormSettings& settings, bool with_comparisons) {
    const int enabled = kEntropyEnabled | kExceptionalEnabled;
    int options = with_comparisons ? (settings.surrogate_options | enabled)
                                   : (settings.surrogate_options & ~(enabled | kAddEntropy | kAddExceptionalWords));
    Surrogate_Form form(parent);
    if (!form.Settings(settings.surrogate_count, options, settings.surrogate_max_length)) return false;
    settings.surrogate_options = options;
    return true;
}

// The edits: the input, its alphabet or length for the question, the answer, then the output file.
std::optional<CommandParams> GatherEdit(QWidget* parent, Session& session, CommandInput input) {
    const auto file = ChooseInput(parent, session);
    if (!file || !ChooseReading(parent, session, *file, true)) return std::nullopt;
    CommandParams params;
    params.input = *file;
    const auto read = ReadForQuestion(parent, session, *file);
    if (!read) return std::nullopt;
    const std::string& text = *read;
    const Alphabet alphabet = BuildAlphabet(text);
    const std::string letters(alphabet.letters.begin(), alphabet.letters.end());
    Host& host = session.host();
    std::filesystem::path* output = nullptr;
    if (input == kChangeAlphabet) {
        const auto answer = AskNewAlphabet(host, letters);
        if (!answer) return std::nullopt;
        params.change_alphabet.new_alphabet = *answer;
        output = &params.change_alphabet.output_path;
    } else if (input == kKeepLetters) {
        const auto answer = AskKeptLetters(host, letters);
        if (!answer) return std::nullopt;
        params.keep_letters.kept_letters = *answer;
        output = &params.keep_letters.output_path;
    } else {
        const auto answer = AskFractions(host, file->filename().string(), static_cast<int>(text.size()));
        if (!answer) return std::nullopt;
        params.fractionate.fractions = *answer;
        output = &params.fractionate.output_path;
    }
    const auto chosen = ChooseOutput(parent, file->parent_path() / EditOutputName(file->filename().string()));
    if (!chosen) return std::nullopt;
    *output = *chosen;
    return params;
}

std::optional<CommandParams> GatherGeneration(QWidget* parent, Session& session, CommandInput input,
                                              FormSettings& settings) {
    CommandParams params;
    GenerateParams generate = settings.generate;
    generate.mode = input == kGenerate ? GenerateMode::kGenerate : GenerateMode::kDiscretiseFile;
    if (input == kDiscretize) {
        const auto series = ChooseInput(parent, session);
        if (!series) return std::nullopt;
        generate.series_file = *series;
    }
    Generate_Form form(parent);
    if (!form.Settings(generate)) return std::nullopt;
    settings.generate = generate;
    const auto output = ChooseOutput(parent, GenerateOutputFolder(session) / ProposedOutputName(generate));
    if (!output) return std::nullopt;
    generate.output_path = *output;
    params.generate = generate;
    return params;
}

}  // namespace

std::optional<CommandParams> GatherCommandInputs(QWidget* parent, Session& session, const MenuItem& item,
                                                 FormSettings& settings) {
    const CommandInput input = item.row->input;
    const Method grammar_method = static_cast<Method>(session.grammar_settings().method);
    CommandParams params;
    switch (input) {
        case kDesktopOnly:
        case kNothing:
            return params;
        case kGrammar: {
            GrammarSettings& grammar = session.grammar_settings();
            Grammar_Form form(parent);
            if (!form.Settings(grammar.method, grammar.options)) return std::nullopt;
            params.grammar.method = static_cast<Method>(grammar.method);
            params.grammar.all_files = (grammar.options & kGrammarOptionsAllFiles) != 0;
            break;
        }
        case kSurrogateFiles:
        case kSurrogateStatistics:
            if (!AskSurrogateSettings(parent, settings, input == kSurrogateStatistics)) return std::nullopt;
            params.surrogate = SurrogateParamsOf(settings, grammar_method);
            break;
        case kGenerate:
        case kDiscretize:
            return GatherGeneration(parent, session, input, settings);
        case kChangeAlphabet:
        case kKeepLetters:
        case kFractionate:
            return GatherEdit(parent, session, input);
        case kSequenceFile:
        case kSubwordFile:
        case kRepeatedWords:
        case kExceptionalWords:
        case kTwoFiles:
        case kFolder:
            break;
    }
    const auto file = ChooseInput(parent, session);
    const bool one_sequence = input != kTwoFiles && input != kFolder && !params.grammar.all_files;
    if (!file || !ChooseReading(parent, session, *file, one_sequence)) return std::nullopt;
    params.input = *file;
    if (input == kRepeatedWords || input == kExceptionalWords) {
        const bool exceptional = input == kExceptionalWords;
        const auto max_length =
            AskMaximumLength(parent, session, *file, exceptional ? kExceptionalWordsTitle : kRepeatedWordsTitle,
                             exceptional ? kShortestExceptionalWord : 1);
        if (!max_length) return std::nullopt;
        params.subwords.max_length = *max_length;
        params.subwords.positions = item.positions_index == 0;
    } else if (input == kTwoFiles) {
        const auto second = ChooseInput(parent, session);
        if (!second) return std::nullopt;
        params.distance.first = *file;
        params.distance.second = *second;
    } else if (input == kFolder) {
        params.tree.file = *file;
    }
    return params;
}

}  // namespace tessarin
