#pragma once

#include <optional>

#include "commands/command_table.h"
#include "generate/generate_params.h"
#include "ui/main_menu.h"

class QWidget;

namespace tessarin {

// The settings of the options forms, kept while the program runs and offered again each time.
struct FormSettings {
    int surrogate_count = 100;
    int surrogate_options = 0;
    int surrogate_max_length = 0;
    GenerateParams generate;
};

// Asks, on the GUI thread and before the run, for everything the item's command needs: its
// options form, its files and its questions, each refused answer asked again where a form or
// box does so. Nothing when the user cancels any of them.
std::optional<CommandParams> GatherCommandInputs(QWidget* parent, Session& session, const MenuItem& item,
                                                 FormSettings& settings);

}  // namespace tessarin
