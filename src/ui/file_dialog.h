#pragma once

#include <optional>
#include <string>

#include "session/host.h"

class QWidget;

namespace tessarin {

// The program's file dialog: "Open File" or "Save File", the caller's filter (such as "*.txt")
// followed by "All Files", starting in the given folder with the given name.
std::optional<FileChoice> ChooseFileWithDialog(QWidget* parent, FileDialogKind kind, const FileChoice& start,
                                               const std::string& filter);

}  // namespace tessarin
