#pragma once

#include <QMainWindow>
#include <QString>
#include <vector>

#include "ui/rtf_reader.h"

class QPlainTextEdit;

namespace tessarin {

// A text window: shows a report or another 8-bit text file, or a text held in memory, in a
// fixed-pitch font; the text can be edited, saved, printed and copied. Files are read and
// written one byte per character and keep their line ends.
class TextForm : public QMainWindow {
    Q_OBJECT

  public:
    // A window on the file, captioned with its path, or nothing when the file cannot be read
    // (then `error` says why). The windows close and delete themselves; the caller shows them.
    static TextForm* ForFile(const QString& path, QString* error);
    static TextForm* ForText(const QString& caption, const QString& text);
    static TextForm* ForRuns(const QString& caption, const std::vector<RtfRun>& runs);

    QString Text() const;
    // The file the window saves to; empty for a text held in memory.
    const QString& FilePath() const { return path_; }

    // Save writes back to the window's file (asking for one when it has none); both answer
    // whether the text was written. A window that does not show its file as it is (a large
    // file's start, long lines broken) writes nothing.
    bool Save();
    bool SaveAs();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    TextForm();
    void BuildMenu();
    bool WriteTo(const QString& path);
    void ShowReadOnly(const QString& why);
    void PrintSelectedText();
    void PrintFile();
    void PrintText(const QString& text);

    QPlainTextEdit* editor_;
    QString path_;
    QString line_end_ = "\r\n";  // the file's own line end, kept when it is saved
    bool read_only_ = false;     // the window does not show the file as it is
};

}  // namespace tessarin
