#pragma once

#include <QStackedWidget>
#include <QStringList>

class QPlainTextEdit;

namespace tessarin {

class TitleView;

// The main window's drawing surface: the title image at start, then the printed result lines.
class MainSurface : public QStackedWidget {
    Q_OBJECT

  public:
    explicit MainSurface(QWidget* parent = nullptr);

    void AppendLine(const QString& line);
    void Clear();
    QStringList Lines() const;

  private:
    void ShowResults();

    TitleView* title_;
    QPlainTextEdit* results_;
    int line_count_ = 0;  // an empty document cannot tell no lines from one empty line
};

}  // namespace tessarin
