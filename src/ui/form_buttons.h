#pragma once

#include <functional>

class QButtonGroup;
class QDialog;
class QHBoxLayout;

namespace tessarin {

// The OK_Cbt ("OK", the default button) and Cancel_Cbt ("&Cancel") row of an options form, set to
// the right: OK calls `on_ok`, Cancel rejects the form.
QHBoxLayout* OkCancelButtons(QDialog& form, std::function<void()> on_ok);

// Gives the keyboard focus to the group's checked option, so that a form opens on the choice
// that stands and the arrow keys move it from there.
void FocusCheckedOption(const QButtonGroup& group);

}  // namespace tessarin
