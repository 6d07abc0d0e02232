#include "ui/table_export_menu.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

#include "logfile/log_file.h"
#include "ui/text_form.h"

namespace tessarin {
namespace {

void SaveTable(TextForm* report, const QTemporaryFile& table) {
    const QFileInfo log(report->FilePath());
    const QString proposed = log.fileName().isEmpty() ? QString() : log.dir().filePath(log.completeBaseName() + ".tsv");
    const QString path = QFileDialog::getSaveFileName(report, "Save Table As", proposed, "TSV table (*.tsv)");
    if (path.isEmpty()) return;
    // The dialog has asked whether to replace an existing file; QFile::copy never replaces one.
    if (QFile::exists(path)) QFile::remove(path);
    if (!QFile::copy(table.fileName(), path)) {
        QMessageBox::warning(report, kMessageTitle, "Cannot write the file " + path);
    }
}

}  // namespace

std::shared_ptr<QTemporaryFile> NewTableFile() {
    auto file = std::make_shared<QTemporaryFile>(QDir::temp().filePath("tessarin-table-XXXXXX.tsv"));
    if (!file->open()) return nullptr;
    file->close();  // kept, empty, until the run writes its table over it
    return file;
}

TextForm* WindowShowingFile(const QString& path) {
    TextForm* newest = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* form = qobject_cast<TextForm*>(widget);
        if (form != nullptr && form->isVisible() && form->FilePath() == path) newest = form;
    }
    return newest;
}

void OfferTableExport(TextForm& report, std::shared_ptr<QTemporaryFile> table) {
    QMenu* file = report.menuBar()->findChild<QMenu*>("Menu_File");
    if (file == nullptr) return;
    QAction* action = new QAction("Save &Table As...", file);
    action->setObjectName("File_SaveTableAs");
    QObject::connect(action, &QAction::triggered, &report,
                     [report = &report, table = std::move(table)] { SaveTable(report, *table); });
    file->insertAction(file->actions().value(3), action);
}

}  // namespace tessarin
