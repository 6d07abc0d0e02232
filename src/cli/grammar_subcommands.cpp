#include <array>
#include <string_view>

#include "cli/subcommand.h"
#include "grammar/grammar.h"
#include "grammar/grammar_command.h"

namespace tessarin {
namespace {

struct MethodName {
    std::string_view name;
    int method;
};

constexpr std::array<MethodName, 4> kMethodNames{{
    {"nvogram", kNvogram},
    {"shortest", kShortestFirst},
    {"longest", kLongestFirst},
    {"gain", kMaximumGain},
}};

int MethodOf(const Arguments& arguments) {
    const auto name = arguments.Option("--method");
    if (!name) return kNvogram;
    for (const MethodName& method : kMethodNames) {
        if (method.name == *name) return method.method;
    }
    throw UsageError("--method takes nvogram, shortest, longest or gain, not '" + *name + "'");
}

}  // namespace

std::vector<Subcommand> GrammarSubcommands() {
    return {
        {"complexity",
         "complexity [--folder] [--method nvogram|shortest|longest|gain] FILE",
         "grammatical complexity and grammar rules; --folder: every file with FILE's extension",
         {"--folder"},
         {"--method"},
         1,
         [](Session& session, CliHost& host, const Arguments& arguments) {
             const int method = MethodOf(arguments);
             const int options = kGrammarOptionsConfirmed | (arguments.Has("--folder") ? kGrammarOptionsAllFiles : 0);
             host.QueueFile(arguments.files[0]);
             return RunCommand(session, [&](Session& s) { return RunGrammarComplexity(s, method, options); });
         }},
    };
}

}  // namespace tessarin
