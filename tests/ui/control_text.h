#pragma once

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QString>

namespace tessarin::testing {

// What a form's control shows: a frame's title, a label's or a button's caption, a box's contents.
inline QString ControlText(QWidget* control) {
    if (auto* frame = qobject_cast<QGroupBox*>(control)) return frame->title();
    if (auto* label = qobject_cast<QLabel*>(control)) return label->text();
    if (auto* box = qobject_cast<QLineEdit*>(control)) return box->text();
    return qobject_cast<QAbstractButton*>(control)->text();
}

// What the control named `name` on `form` shows, or "<no control NAME>" when the form has none.
inline QString ControlText(const QWidget& form, const QString& name) {
    auto* control = form.findChild<QWidget*>(name);
    return control == nullptr ? "<no control " + name + ">" : ControlText(control);
}

}  // namespace tessarin::testing
