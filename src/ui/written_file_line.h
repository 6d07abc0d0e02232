#pragma once

#include <QLabel>
#include <QString>

namespace tessarin {

// The main window's status bar line, "Report: <path>" and the like: where the last report, test
// sequence or image was written. A click on it asks for the file to be opened.
class WrittenFileLine : public QLabel {
    Q_OBJECT

  public:
    explicit WrittenFileLine(QWidget* parent = nullptr);

    // `kind` names what was written ("Report", "Test sequence", "Image").
    void Show(const QString& kind, const QString& path);
    const QString& Path() const { return path_; }

  signals:
    void OpenRequested(const QString& path);

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    QString path_;
};

}  // namespace tessarin
