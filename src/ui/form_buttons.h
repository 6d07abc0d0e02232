#pragma once

#include <functional>

class QDialog;
class QHBoxLayout;

namespace tessarin {

// The OK_Cbt ("OK", the default button) and Cancel_Cbt ("&Cancel") row of an options form, set to
// the right: OK calls `on_ok`, Cancel rejects the form.
QHBoxLayout* OkCancelButtons(QDialog& form, std::function<void()> on_ok);

}  // namespace tessarin
