#pragma once

#include <QWidget>

namespace tessarin {

// The title image that the main window shows until the first command prints on it.
class TitleView : public QWidget {
    Q_OBJECT

  public:
    explicit TitleView(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessarin
