#include "cli/subcommand.h"
#include "subwords/block_entropies.h"
#include "subwords/exceptional_words.h"
#include "subwords/local_uncertainties.h"
#include "subwords/references.h"
#include "subwords/repeated_words.h"

namespace tessarin {
namespace {

// The menu index of the two variants: 0 "With Positions", 1 "Without Positions".
int PositionsFlag(const Arguments& arguments) {
    return arguments.Has("--positions") ? 0 : 1;
}

// --max-length answers the input box; without it the box keeps its proposal, the sequence length.
void QueueMaxLength(CliHost& host, const Arguments& arguments) {
    const auto max_length = arguments.Option("--max-length");
    if (!max_length) return;
    if (ParseInteger("--max-length", *max_length) < 1) throw UsageError("--max-length takes a whole number from 1 up");
    host.QueueInput(*max_length);
}

// The two-variant analyses: FILE, the answer of the maximum-length box, and the variant.
SubcommandRun WordListRun(Outcome (*analysis)(Session&, int positions_flag)) {
    return [analysis](Session& session, CliHost& host, const Arguments& arguments) {
        host.QueueFile(arguments.files[0]);
        QueueMaxLength(host, arguments);
        const int positions_flag = PositionsFlag(arguments);
        return RunCommand(session, [&](Session& s) { return analysis(s, positions_flag); });
    };
}

}  // namespace

std::vector<Subcommand> SubwordSubcommands() {
    return {
        {"entropies",
         "entropies FILE",
         "block entropies H_n, H_n/n and their differences",
         {},
         {},
         1,
         OnFile(RunBlockEntropies)},
        {"uncertainties",
         "uncertainties FILE",
         "local conditional uncertainties of the symbol after each repeated word",
         {},
         {},
         1,
         OnFile(RunLocalUncertainties)},
        {"exceptional",
         "exceptional [--positions] [--max-length N] FILE",
         "words far more frequent than a first-order Markov chain predicts; --positions lists where",
         {"--positions"},
         {"--max-length"},
         1,
         WordListRun(RunExceptionalWords)},
        {"repeats",
         "repeats [--positions] [--max-length N] FILE",
         "every repeated word with its count; --positions adds positions and distances",
         {"--positions"},
         {"--max-length"},
         1,
         WordListRun(RunRepeatedWords)},
        {"references",
         "references",
         "write the background references to Reference.txt in the program folder",
         {},
         {},
         0,
         [](Session& session, CliHost&, const Arguments&) { return RunCommand(session, RunReferences); }},
    };
}

}  // namespace tessarin
