#include "ui/text_form.h"

#include <QAction>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QStringList>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

#include "logfile/log_file.h"
#include "ui/file_dialog.h"
#include "ui/fonts.h"
#include "ui/qt_text.h"

namespace tessarin {
namespace {

// The line end a file uses, so that saving it changes nothing but the edited text.
QString LineEndOf(const QByteArray& bytes) {
    if (bytes.contains("\r\n")) return "\r\n";
    if (bytes.contains('\r')) return "\r";
    return "\n";
}

bool FitsInEightBits(const QString& text) {
    for (const QChar c : text) {
        if (c.unicode() > 0xFF) return false;
    }
    return true;
}

// One line of millions of characters takes seconds to lay out (10,000,000 take about 9 s), and the
// window, with the keys that cancel a run, waits meanwhile; lines of 10,000 lay out at once. The
// start rule of a genome's grammar is such a line, and so is a sequence held in memory (reading a
// sequence drops line breaks, so a saved copy of one reads back the same).
constexpr qsizetype kLongestShownLine = 10000;

// A report can run to gigabytes (every repeated word of a genome), which no window can hold, and
// tens of megabytes already take seconds to lay out: a larger file is shown up to here.
constexpr qint64 kLargestShownFile = qint64{16} << 20;

// Breaks every line longer than `longest` characters into lines of that many; answers whether
// there was one.
bool BreakLongLines(QString& text, qsizetype longest) {
    QString broken;
    bool any = false;
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = text.indexOf('\n', start);
        if (end < 0) end = text.size();
        if (end - start > longest && !any) {
            any = true;
            broken = text.left(start);
        }
        if (any) {
            for (qsizetype piece = start; piece < end; piece += longest) {
                if (piece > start) broken += '\n';
                broken += QStringView(text).mid(piece, std::min(longest, end - piece));
            }
            if (end < text.size()) broken += '\n';
        }
        start = end + 1;
    }
    if (any) text = std::move(broken);
    return any;
}

}  // namespace

TextForm::TextForm() : editor_(new QPlainTextEdit(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    editor_->setObjectName("Text_Tbx");
    editor_->setFont(FixedPitchFont());
    editor_->setLineWrapMode(QPlainTextEdit::NoWrap);
    setCentralWidget(editor_);
    BuildMenu();
    resize(720, 480);
}

TextForm* TextForm::ForFile(const QString& path, QString* error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error != nullptr) *error = "Cannot read the file " + path;
        return nullptr;
    }
    const qint64 size = file.size();
    const bool partial = size > kLargestShownFile;
    QByteArray bytes = partial ? file.read(kLargestShownFile) : file.readAll();
    if (partial) {
        // The part shown ends with a whole line, where the file has lines.
        const qsizetype last_line_end = bytes.lastIndexOf('\n');
        if (last_line_end >= 0) bytes.truncate(last_line_end + 1);
    }
    auto* form = new TextForm();
    form->path_ = path;
    form->line_end_ = LineEndOf(bytes);
    QString text = QString::fromLatin1(bytes);
    text.replace("\r\n", "\n").replace('\r', '\n');
    QStringList changes;
    if (partial) {
        constexpr double kMegabyte = 1 << 20;
        changes << QString("only the first %1 MB of %2 MB are shown")
                       .arg(kLargestShownFile / kMegabyte, 0, 'f', 0)
                       .arg(static_cast<double>(size) / kMegabyte, 0, 'f', 1);
    }
    if (BreakLongLines(text, kLongestShownLine))
        changes << QString("lines longer than %1 characters are shown broken").arg(kLongestShownLine);
    form->editor_->setPlainText(text);
    form->setWindowTitle(path);
    if (!changes.isEmpty()) form->ShowReadOnly("Read only: " + changes.join(" and ") + "; the file is whole.");
    return form;
}

// The window does not show the file as it is: nothing it does may write what it shows over the file.
void TextForm::ShowReadOnly(const QString& why) {
    editor_->setReadOnly(true);
    for (const char* name : {"File_Clear", "File_Save", "File_SaveAs"})
        findChild<QAction*>(name)->setEnabled(false);
    read_only_ = true;
    statusBar()->showMessage(why);
}

TextForm* TextForm::ForText(const QString& caption, const QString& text) {
    auto* form = new TextForm();
    // A text from memory is usually a sequence on one long line: wrap it to the window.
    form->editor_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    form->editor_->setWordWrapMode(QTextOption::WrapAnywhere);
    QString shown = text;
    BreakLongLines(shown, kLongestShownLine);
    form->editor_->setPlainText(shown);
    form->setWindowTitle(caption);
    return form;
}

TextForm* TextForm::ForRuns(const QString& caption, const std::vector<RtfRun>& runs) {
    auto* form = new TextForm();
    form->editor_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    QTextCursor cursor(form->editor_->document());
    for (const RtfRun& run : runs) {
        QTextCharFormat format;
        format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
        format.setFontItalic(run.italic);
        cursor.insertText(run.text, format);
    }
    form->editor_->document()->setModified(false);
    form->editor_->moveCursor(QTextCursor::Start);
    form->setWindowTitle(caption);
    return form;
}

QString TextForm::Text() const {
    return editor_->toPlainText();
}

bool TextForm::Save() {
    if (read_only_) return false;
    if (path_.isEmpty()) return SaveAs();
    return WriteTo(path_);
}

bool TextForm::SaveAs() {
    if (read_only_) return false;
    const QFileInfo current(path_);
    const std::filesystem::path start = path_.isEmpty() ? std::filesystem::path() : ToPath(current.absoluteFilePath());
    const auto choice = ChooseFileWithDialog(this, FileDialogKind::kSave, start, "*.txt");
    if (!choice) return false;
    const QString path = FromPath(*choice);
    if (!WriteTo(path)) return false;
    path_ = path;
    setWindowTitle(path_);
    return true;
}

bool TextForm::WriteTo(const QString& path) {
    QString text = Text();
    if (!FitsInEightBits(text)) {
        QMessageBox::warning(this, kMessageTitle,
                             "The text holds characters that an 8-bit text file cannot store. "
                             "Remove them and save again.");
        return false;
    }
    if (line_end_ != "\n") text.replace('\n', line_end_);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text.toLatin1()) < 0 || !file.flush()) {
        QMessageBox::warning(this, kMessageTitle, "Cannot write the file " + path);
        return false;
    }
    editor_->document()->setModified(false);
    return true;
}

void TextForm::closeEvent(QCloseEvent* event) {
    if (!editor_->document()->isModified()) {
        event->accept();
        return;
    }
    const auto answer =
        QMessageBox::question(this, kMessageTitle, "Save the changes to " + windowTitle() + "?",
                              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
    if (answer == QMessageBox::Cancel || (answer == QMessageBox::Yes && !Save())) {
        event->ignore();
        return;
    }
    event->accept();
}

void TextForm::BuildMenu() {
    QMenu* file = menuBar()->addMenu("&File");
    file->setObjectName("Menu_File");
    const auto add = [this](QMenu* menu, const char* name, const QString& caption, auto slot,
                            QKeySequence keys = QKeySequence()) {
        QAction* action = menu->addAction(caption, this, slot);
        action->setObjectName(name);
        action->setShortcut(keys);
        return action;
    };
    add(file, "File_Clear", "C&lear", [this] { editor_->clear(); });
    add(
        file, "File_Save", "&Save", [this] { Save(); }, QKeySequence::Save);
    add(file, "File_SaveAs", "Save &As...", [this] { SaveAs(); });
    file->addSeparator();
    add(file, "File_PrintSelectedText", "Print S&elected Text", [this] { PrintSelectedText(); });
    add(
        file, "File_PrintFile", "&Print File", [this] { PrintFile(); }, QKeySequence::Print);
    file->addSeparator();
    add(file, "File_Exit", "E&xit", [this] { close(); });

    QMenu* edit = menuBar()->addMenu("&Edit");
    edit->setObjectName("Menu_Edit");
    add(
        edit, "Edit_Copy", "&Copy", [this] { editor_->copy(); }, QKeySequence::Copy);
    add(
        edit, "Edit_SelectAll", "Select &All", [this] { editor_->selectAll(); }, QKeySequence::SelectAll);
}

void TextForm::PrintSelectedText() {
    QString selected = editor_->textCursor().selectedText();
    if (selected.isEmpty()) {
        QMessageBox::information(this, kMessageTitle, "No text is selected.");
        return;
    }
    selected.replace(QChar::ParagraphSeparator, '\n');
    PrintText(selected);
}

void TextForm::PrintFile() {
    PrintText(Text());
}

void TextForm::PrintText(const QString& text) {
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    QTextDocument document;
    document.setDefaultFont(FixedPitchFont());
    document.setPlainText(text);
    document.print(&printer);
}

}  // namespace tessarin
