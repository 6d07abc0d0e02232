// The main window's menu handlers that work on the GUI thread: the window image, the help.
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include "logfile/log_file.h"
#include "sequence/file_name_check.h"
#include "sequence/sequence_file.h"
#include "session/program_folder.h"
#include "ui/file_dialog.h"
#include "ui/main_form.h"
#include "ui/main_surface.h"
#include "ui/qt_text.h"
#include "ui/rtf_reader.h"
#include "ui/text_form.h"
#include "ui/window_placement.h"
#include "ui/written_file_line.h"
#include "version.h"

namespace tessarin {
namespace {

constexpr const char* kHelpFileName = "Tessarin.rtf";
constexpr const char* kImageNameWithoutSequence = "tessarin";

const QString kAboutText = QString(
                               "TESSARIN: Grammatical Complexity Analysis\n"
                               "Version %1, 2026\n\n"
                               "Written by the Tessarin developers.\n\n"
                               "Obtain it from its source repository.\n"
                               "Developed as an open project.")
                               .arg(kVersion);

}  // namespace

QPixmap MainForm::WindowImage() {
    aux_pbx_->setPixmap(surface_->grab());
    return aux_pbx_->pixmap();
}

void MainForm::SaveImageAs() {
    const CurrentSequence& sequence = session_.sequence();
    const std::string base = sequence.file_name.empty() ? kImageNameWithoutSequence : FileBaseName(sequence.file_name);
    std::filesystem::path start =
        (sequence.folder.empty() ? session_.program_folder() : sequence.folder) / (base + ".bmp");
    for (;;) {
        const auto choice = ChooseFileWithDialog(this, FileDialogKind::kSave, start, "*.bmp");
        if (!choice) return;
        if (const auto refusal = FileNameRefusal(choice->filename().string(), FileNameRules{})) {
            QMessageBox::information(this, kMessageTitle, FromDisplayText(*refusal));
            start = *choice;  // ask again, with the refused name there to correct
            continue;
        }
        const QString path = FromPath(*choice);
        if (!WindowImage().save(path, "BMP")) {
            QMessageBox::warning(this, kMessageTitle, "Cannot write the image file " + path);
            return;
        }
        written_->Show("Image", path);
        return;
    }
}

void MainForm::PrintImage() {
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    const QPixmap image = WindowImage();
    QPainter painter;
    if (!painter.begin(&printer)) {
        QMessageBox::warning(this, kMessageTitle, "Cannot print on " + printer.printerName());
        return;
    }
    // As large as the page allows, undistorted.
    const QRect page = painter.viewport();
    QSize size = image.size();
    size.scale(page.size(), Qt::KeepAspectRatio);
    painter.setViewport(page.x(), page.y(), size.width(), size.height());
    painter.setWindow(image.rect());
    painter.drawPixmap(0, 0, image);
}

void MainForm::CopyImage() {
    QApplication::clipboard()->setPixmap(WindowImage());
}

void MainForm::ShowAbout() {
    QMessageBox::information(this, kMessageTitle, kAboutText);
}

void MainForm::ShowHelp() {
    const QString path = FromPath(ExecutableFolder() / kHelpFileName);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        QMessageBox::warning(this, kMessageTitle, "The help file " + path + " cannot be read.");
        return;
    }
    ShowBesideMainWindow(*TextForm::ForRuns("Using Tessarin", ReadRtf(file.readAll())), *this);
}

}  // namespace tessarin
