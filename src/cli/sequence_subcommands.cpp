#include <iostream>

#include "cli/subcommand.h"
#include "logfile/log_file.h"
#include "sequence/display_sequence.h"
#include "sequence/test_sequence.h"

namespace tessarin {

std::vector<Subcommand> SequenceSubcommands() {
    return {
        {"display",
         "display FILE",
         "length, alphabet and symbol entropy of a sequence file",
         {},
         {},
         1,
         OnFile(DisplaySequenceFile)},
        {"test-sequence",
         "test-sequence",
         "write 40000 random symbols over ABCD to test.txt in the program folder",
         {},
         {},
         0,
         [](Session& session, CliHost&, const Arguments&) {
             const Outcome outcome = RunCommand(session, CreateTestSequence);
             if (outcome == Outcome::kCompleted) {
                 std::cerr << "Wrote " << JoinPath(session.program_folder(), "test.txt") << '\n';
             }
             return outcome;
         }},
    };
}

}  // namespace tessarin
