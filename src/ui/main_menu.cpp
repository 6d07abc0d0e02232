#include "ui/main_menu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <utility>

namespace tessarin {
namespace {

// The platform's own keys for the items that have one.
constexpr std::pair<const char*, QKeySequence::StandardKey> kStandardKeys[] = {
    {"File_Exit", QKeySequence::Quit},          {"Help_UsingTessarin", QKeySequence::HelpContents},
    {"Edit_Copy", QKeySequence::Copy},          {"File_Print", QKeySequence::Print},
    {"File_SaveImageAs", QKeySequence::SaveAs},
};

QAction* AddItem(QMenu& menu, const QString& name, const char* caption) {
    QAction* action = menu.addAction(caption);
    action->setObjectName(name);
    return action;
}

}  // namespace

QHash<QString, MenuItem> BuildMainMenu(QMenuBar& bar) {
    QHash<QString, QMenu*> menus;
    for (const MenuRow& row : MenuTable()) {
        QMenu* menu = bar.addMenu(row.caption);
        menu->setObjectName(row.object_name);
        menus.insert(row.object_name, menu);
    }
    QHash<QString, MenuItem> items;
    for (const CommandRow& row : CommandTable()) {
        QMenu& menu = *menus.value(row.menu);
        if (row.separator_before != nullptr) menu.addSeparator()->setObjectName(row.separator_before);
        if (row.positions_pair == nullptr) {
            items.insert(row.object_name, MenuItem{AddItem(menu, row.object_name, row.caption), &row});
            continue;
        }
        QMenu* submenu = menu.addMenu(row.caption);
        submenu->setObjectName(row.object_name);
        const char* captions[] = {"With &Positions", "&Without Positions"};
        for (int index = 0; index < 2; ++index) {
            const QString name = QString("%1_%2").arg(row.positions_pair).arg(index);
            items.insert(name, MenuItem{AddItem(*submenu, name, captions[index]), &row, index});
        }
    }
    QMenu& file = *menus.value("Menu_File");
    auto* fold = new QAction("Fold Letters to &Capitals", &file);
    fold->setObjectName(kFoldCapitalsItem);
    fold->setCheckable(true);
    file.insertAction(file.actions().value(1), fold);  // below "&Display Sequence File"
    for (const auto& [name, key] : kStandardKeys) {
        if (const auto item = items.constFind(name); item != items.cend()) item->action->setShortcut(key);
    }
    return items;
}

}  // namespace tessarin
