#include "ui/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

#include "ui/qt_text.h"

namespace tessarin {
namespace {

constexpr int kRecentFolderCount = 8;

// Newest first; kept while the program runs, like every other setting.
QStringList& RecentFolders() {
    static QStringList folders;
    return folders;
}

// The home folder, then the folders of the files chosen lately.
QList<QUrl> SidebarUrls() {
    QList<QUrl> urls{QUrl::fromLocalFile(QDir::homePath())};
    for (const QString& folder : RecentFolders()) {
        const QUrl url = QUrl::fromLocalFile(folder);
        if (!urls.contains(url)) urls << url;
    }
    return urls;
}

}  // namespace

bool IsBrowsableFolder(const QString& folder) {
    const QFileInfo info(folder);
    if (folder.isEmpty() || !info.isDir()) return false;
    // The kernel's own file systems: their files change as they are read, some block a reader,
    // and listing them can take long.
    const QString canonical = info.canonicalFilePath();
    for (const QString& kernel_tree : {QStringLiteral("/proc"), QStringLiteral("/sys")}) {
        if (canonical == kernel_tree || canonical.startsWith(kernel_tree + '/')) return false;
    }
    return true;
}

void RememberFolder(const QString& folder) {
    if (!IsBrowsableFolder(folder)) return;
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    QStringList& folders = RecentFolders();
    folders.removeAll(canonical);
    folders.prepend(canonical);
    while (folders.size() > kRecentFolderCount)
        folders.removeLast();
}

std::optional<std::filesystem::path> ChooseFileWithDialog(QWidget* parent, FileDialogKind kind,
                                                          const std::filesystem::path& start,
                                                          const std::string& filter) {
    const bool saving = kind == FileDialogKind::kSave;
    QFileDialog dialog(parent, saving ? "Save File" : "Open File");
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    QStringList filters;
    if (!filter.empty()) filters << FromPath(filter);
    filters << "All Files (*)";
    dialog.setNameFilters(filters);
    const QString folder = FromPath(start.parent_path());
    dialog.setDirectory(IsBrowsableFolder(folder) ? folder : QDir::homePath());
    if (start.has_filename()) dialog.selectFile(FromPath(start.filename()));
    dialog.setSidebarUrls(SidebarUrls());

    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const QFileInfo chosen(dialog.selectedFiles().constFirst());
    RememberFolder(chosen.absolutePath());
    return ToPath(chosen.absoluteFilePath());
}

}  // namespace tessarin
