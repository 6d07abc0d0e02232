#include "commands/command_table.h"

#include <array>

#include "sequence/display_sequence.h"
#include "sequence/test_sequence.h"
#include "subwords/block_entropies.h"
#include "subwords/exceptional_words.h"
#include "subwords/local_uncertainties.h"
#include "subwords/references.h"
#include "subwords/repeated_words.h"
#include "surrogate/surrogate_files.h"
#include "surrogate/surrogate_statistics.h"

namespace tessarin {
namespace {

// Runs a subject's command on its part of the parameters, with the chosen sequence file filled in.
template <auto kRun, auto kPart>
Outcome OnInput(Session& session, const CommandParams& params) {
    auto part = params.*kPart;
    part.input = params.input;
    return kRun(session, part);
}

// Runs a command that takes its part of the parameters as it stands.
template <auto kRun, auto kPart>
Outcome OnPart(Session& session, const CommandParams& params) {
    return kRun(session, params.*kPart);
}

Outcome Display(Session& session, const CommandParams& params) {
    return DisplaySequenceFile(session, params.input);
}
Outcome TestSequence(Session& session, const CommandParams&) {
    return CreateTestSequence(session);
}
Outcome Generate(Session& session, const CommandParams& params) {
    GenerateState scratch;
    return RunGenerateOrDiscretize(session, params.generate,
                                   params.generate_state != nullptr ? *params.generate_state : scratch);
}

using enum CommandInput;

constexpr std::array kMenus{
    MenuRow{"Menu_File", "&File"}, MenuRow{"Menu_Edit", "&Edit"}, MenuRow{"Menu_View", "&View"},
    MenuRow{"Menu_Calc", "&Calc"}, MenuRow{"Menu_Help", "&Help"},
};

// clang-format off
constexpr std::array kCommands{
    CommandRow{"View_DisplaySequenceFile", "&Display Sequence File", "Menu_File", nullptr, nullptr,
               "display", "length, alphabet and symbol entropy of a sequence file", kSequenceFile, Display},
    CommandRow{"File_SaveImageAs", "&Save Image As", "Menu_File", "File_line", nullptr, nullptr, nullptr,
               kDesktopOnly, nullptr},
    CommandRow{"File_Print", "&Print", "Menu_File", "File_Line0", nullptr, nullptr, nullptr, kDesktopOnly, nullptr},
    CommandRow{"File_Exit", "E&xit", "Menu_File", "File_line1", nullptr, nullptr, nullptr, kDesktopOnly, nullptr},

    CommandRow{"Edit_Copy", "&Copy", "Menu_Edit", nullptr, nullptr, nullptr, nullptr, kDesktopOnly, nullptr},
    CommandRow{"Edit_Fractionate", "&Fractionate Sequence", "Menu_Edit", "Edit_Line0", nullptr,
               "fractionate", "write the chosen position ranges of a sequence, one per line", kFractionate,
               OnInput<RunFractionate, &CommandParams::fractionate>},
    CommandRow{"Edit_ChangeAlphabet", "Change &Alphabet", "Menu_Edit", nullptr, nullptr,
               "change-alphabet", "spell a sequence with another alphabet, letter for letter", kChangeAlphabet,
               OnInput<RunChangeAlphabet, &CommandParams::change_alphabet>},
    CommandRow{"Edit_RemoveFileContext", "&Remove File Context", "Menu_Edit", nullptr, nullptr,
               "keep-letters", "keep only the chosen letters of a sequence", kKeepLetters,
               OnInput<RunRemoveFileContext, &CommandParams::keep_letters>},
    CommandRow{"Edit_GenerateSequence", "&Generate a Sequence", "Menu_Edit", "Edit_Line1", nullptr,
               "generate", "generate a test series, as numbers or discretised into symbols", kGenerate, Generate},
    CommandRow{"Edit_DiscretizeTimeSeries", "&Discretize a Time Series", "Menu_Edit", nullptr, nullptr,
               "discretize", "discretise a number series file into symbols", kDiscretize, Generate},
    CommandRow{"Edit_CreateTestSequence", "Create Test Sequence", "Menu_Edit", nullptr, nullptr,
               "test-sequence", "write 40000 random symbols over ABCD to test.txt in the program folder",
               kNothing, TestSequence},
    CommandRow{"File_MakeSurrogateFiles", "&Make Surrogate Files", "Menu_Edit", "Edit_Line2", nullptr,
               "surrogate-files", "write surrogates that keep the symbol, pair or triple counts", kSurrogateFiles,
               OnInput<RunMakeSurrogateFiles, &CommandParams::surrogate>},

    CommandRow{"View_CloseallTextWindows", "Close All &Text Windows", "Menu_View", nullptr, nullptr, nullptr,
               nullptr, kDesktopOnly, nullptr},
    CommandRow{"View_CloseallPlotWindows", "Close All &Plot Windows", "Menu_View", nullptr, nullptr, nullptr,
               nullptr, kDesktopOnly, nullptr},

    CommandRow{"Calc_FindRepeatedWords", "&Repeating Subwords", "Menu_Calc", nullptr, "Subwords_WithPositions",
               "repeats", "every repeated word with its count; --positions adds positions and distances",
               kRepeatedWords, OnInput<RunRepeatedWords, &CommandParams::subwords>},
    CommandRow{"Calc_ExceptionalSubwords", "E&xceptional Subwords", "Menu_Calc", nullptr,
               "Exceptional_WithPositions", "exceptional",
               "words far more frequent than a first-order Markov chain predicts; --positions lists where",
               kExceptionalWords, OnInput<RunExceptionalWords, &CommandParams::subwords>},
    CommandRow{"Calc_PartialEntropies", "Subword &Entropies", "Menu_Calc", "Calc_line2", nullptr,
               "entropies", "block entropies H_n, H_n/n and their differences", kSubwordFile,
               OnInput<RunBlockEntropies, &CommandParams::subwords>},
    CommandRow{"Calc_ConditionalEntropies", "&Local Conditional Uncertainties", "Menu_Calc", nullptr, nullptr,
               "uncertainties", "local conditional uncertainties of the symbol after each repeated word",
               kSubwordFile, OnInput<RunLocalUncertainties, &CommandParams::subwords>},
    CommandRow{"Calc_GrammarComplexity", "&Grammatical Complexity", "Menu_Calc", "Calc_line3", nullptr,
               "complexity", "grammatical complexity and grammar rules; --folder: every file with FILE's extension",
               kGrammar, OnInput<RunGrammarComplexity, &CommandParams::grammar>},
    CommandRow{"Calc_AlgorithmicDistance", "&Algorithmic Distance", "Menu_Calc", "Calc_line4", nullptr,
               "distance", "conditional complexities, distance and similarity of two sequences", kTwoFiles,
               OnPart<RunAlgorithmicDistance, &CommandParams::distance>},
    CommandRow{"Calc_BuildTree", "Distance Matrix / &Tree", "Menu_Calc", nullptr, nullptr,
               "tree", "distance matrix and cluster tree of every file with FILE's extension in its folder",
               kFolder, OnPart<RunDistanceTree, &CommandParams::tree>},
    CommandRow{"Calc_SurrogateStatistics", "&Surrogate Statistics", "Menu_Calc", "Calc_Line1", nullptr,
               "surrogate-stats", "complexity, entropies and exceptional words against a surrogate ensemble",
               kSurrogateStatistics, OnInput<RunSurrogateStatistics, &CommandParams::surrogate>},

    CommandRow{"Help_About", "&About", "Menu_Help", nullptr, nullptr, nullptr, nullptr, kDesktopOnly, nullptr},
    CommandRow{"Help_Literature", "&References", "Menu_Help", nullptr, nullptr,
               "references", "write the background references to Reference.txt in the program folder", kNothing,
               OnPart<RunReferences, &CommandParams::subwords>},
    CommandRow{"Help_UsingTessarin", "&Using Tessarin", "Menu_Help", nullptr, nullptr, nullptr, nullptr,
               kDesktopOnly, nullptr},
};
// clang-format on

}  // namespace

std::span<const MenuRow> MenuTable() {
    return kMenus;
}

std::span<const CommandRow> CommandTable() {
    return kCommands;
}

}  // namespace tessarin
