#include "cli/subcommand.h"

namespace tessarin {

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
