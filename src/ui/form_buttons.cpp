#include "ui/form_buttons.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace tessarin {

QHBoxLayout* OkCancelButtons(QDialog& form, std::function<void()> on_ok) {
    auto* ok = new QPushButton("OK", &form);
    ok->setObjectName("OK_Cbt");
    ok->setDefault(true);
    auto* cancel = new QPushButton("&Cancel", &form);
    cancel->setObjectName("Cancel_Cbt");
    QObject::connect(ok, &QPushButton::clicked, &form, std::move(on_ok));
    QObject::connect(cancel, &QPushButton::clicked, &form, &QDialog::reject);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    return buttons;
}

void FocusCheckedOption(const QButtonGroup& group) {
    if (QAbstractButton* checked = group.checkedButton()) checked->setFocus(Qt::TabFocusReason);
}

}  // namespace tessarin
