#pragma once

#include <QHash>
#include <QString>

#include "commands/command_table.h"

class QAction;
class QMenuBar;

namespace tessarin {

// A menu item and the command row it stands for; `positions_index` is 0 for "With &Positions",
// 1 for "&Without Positions" and -1 for an item that is no such pair's.
struct MenuItem {
    QAction* action = nullptr;
    const CommandRow* row = nullptr;
    int positions_index = -1;
};

// The File menu's checkable "Fold Letters to &Capitals": a setting, not a command; while it is
// checked, every sequence read has its lower-case letters folded to capitals.
inline constexpr const char* kFoldCapitalsItem = "File_FoldCapitals";

// Fills the menu bar from the command table, and the File menu's setting above: every item carries its control name as
// Qt object name, separators too. Answers the items by object name ("Subwords_WithPositions_0" for a pair's).
QHash<QString, MenuItem> BuildMainMenu(QMenuBar& bar);

}  // namespace tessarin
