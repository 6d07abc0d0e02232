#include "ui/main_menu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace tessarin {
namespace {

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
    return items;
}

}  // namespace tessarin
