#pragma once

#include <filesystem>
#include <optional>
#include <string>

class QString;
class QWidget;

namespace tessarin {

enum class FileDialogKind { kOpen, kSave };

// The program's file dialog: "Open File" or "Save File", the caller's filter (such as "*.txt")
// followed by "All Files", starting in the folder of `start` with its file name proposed (in the
// home folder when that is no folder to browse). The sidebar offers the recent folders.
std::optional<std::filesystem::path> ChooseFileWithDialog(QWidget* parent, FileDialogKind kind,
                                                          const std::filesystem::path& start,
                                                          const std::string& filter);

// A folder a file dialog may start in: an existing folder outside /proc and /sys.
bool IsBrowsableFolder(const QString& folder);

// Puts the folder first among the recent folders of the dialogs' sidebar.
void RememberFolder(const QString& folder);

}  // namespace tessarin
