#include "ui/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "ui/qt_text.h"

namespace tessarin {

std::optional<FileChoice> ChooseFileWithDialog(QWidget* parent, FileDialogKind kind, const FileChoice& start,
                                               const std::string& filter) {
    const bool saving = kind == FileDialogKind::kSave;
    QFileDialog dialog(parent, saving ? "Save File" : "Open File");
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    QStringList filters;
    if (!filter.empty()) filters << FromPath(filter);
    filters << "All Files (*)";
    dialog.setNameFilters(filters);
    const QString folder = FromPath(start.folder);
    if (!folder.isEmpty() && QDir(folder).exists()) dialog.setDirectory(folder);
    if (!start.name.empty()) dialog.selectFile(FromPath(start.name));

    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const QFileInfo chosen(dialog.selectedFiles().constFirst());
    std::string folder_chosen = ToPath(chosen.absolutePath());
    if (folder_chosen.empty() || folder_chosen.back() != '/') folder_chosen += '/';
    return FileChoice{folder_chosen, ToPath(chosen.fileName())};
}

}  // namespace tessarin
