#include "ui/tree_exports_menu.h"

#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <memory>

#include "distance/tree_exports.h"
#include "logfile/log_file.h"
#include "ui/qt_text.h"
#include "ui/text_form.h"

namespace tessarin {
namespace {

constexpr const char* kNewickFilter = "Newick tree (*.nwk *.newick *.tre)";
constexpr const char* kPhylipFilter = "PHYLIP distance matrix (*.phy *.dist)";
constexpr const char* kTsvFilter = "TSV table (*.tsv)";

void SaveTree(QWidget* parent, const DistanceTreeResult& result) {
    QString filter;
    const QString path =
        QFileDialog::getSaveFileName(parent, "Save Tree As", QString(),
                                     QString("%1;;%2;;%3").arg(kNewickFilter, kPhylipFilter, kTsvFilter), &filter);
    if (path.isEmpty()) return;
    std::string text;
    if (filter == kPhylipFilter) {
        text = PhylipText(result.matrix, result.names);
    } else if (filter == kTsvFilter) {
        text = TsvText(result.matrix, result.names);
    } else {
        text = NewickText(result.tree);
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.data(), static_cast<qint64>(text.size())) < 0) {
        QMessageBox::warning(parent, kMessageTitle, "Cannot write the file " + path);
    }
}

}  // namespace

void OfferTreeExports(TextForm& report, DistanceTreeResult result) {
    QMenu* file = report.menuBar()->findChild<QMenu*>("Menu_File");
    if (file == nullptr) return;
    auto shared = std::make_shared<DistanceTreeResult>(std::move(result));
    QAction* action = new QAction("Save Tree &As...", file);
    action->setObjectName("File_SaveTreeAs");
    QObject::connect(action, &QAction::triggered, &report, [&report, shared] { SaveTree(&report, *shared); });
    file->insertAction(file->actions().value(3), action);
}

}  // namespace tessarin
