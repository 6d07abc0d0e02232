#pragma once

#include "distance/algorithmic_distance.h"
#include "distance/distance_tree.h"
#include "generate/change_alphabet.h"
#include "generate/fractionate.h"
#include "generate/generate_command.h"
#include "generate/remove_file_context.h"
#include "grammar/grammar_command.h"
#include "subwords/subword_command.h"
#include "surrogate/surrogate_params.h"

namespace tessarin {

// Everything a command may need, gathered before it runs by the desktop program's forms and
// dialogs or by the command line's options. A command reads only its own part.
struct CommandParams {
    std::filesystem::path input;  // the sequence file of a single-sequence command
    SubwordParams subwords;
    GrammarParams grammar;
    SurrogateParams surrogate;
    DistanceParams distance;
    TreeParams tree;
    GenerateParams generate;
    ChangeAlphabetParams change_alphabet;
    RemoveFileContextParams keep_letters;
    FractionateParams fractionate;
    // What generation keeps from run to run (the Gaussian spare, the last series for the plot
    // window); the front end owns it for the program's lifetime.
    GenerateState* generate_state = nullptr;
};

}  // namespace tessarin
