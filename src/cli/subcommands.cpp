#include "cli/subcommand.h"

namespace tessarin {

SubcommandRun OnFile(CommandFlow flow) {
    return [flow = std::move(flow)](Session& session, CliHost& host, const Arguments& arguments) {
        host.QueueFile(arguments.files[0]);
        return RunCommand(session, flow);
    };
}

const std::vector<Subcommand>& Subcommands() {
    static const std::vector<Subcommand> all = [] {
        std::vector<Subcommand> list;
        for (auto group : {SequenceSubcommands, GrammarSubcommands, SubwordSubcommands}) {
            for (Subcommand& subcommand : group())
                list.push_back(std::move(subcommand));
        }
        return list;
    }();
    return all;
}

}  // namespace tessarin
