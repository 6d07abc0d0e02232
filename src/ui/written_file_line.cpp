#include "ui/written_file_line.h"

#include <QMouseEvent>

namespace tessarin {

WrittenFileLine::WrittenFileLine(QWidget* parent) : QLabel(parent) {
    setObjectName("Written_Lbl");
    setTextFormat(Qt::PlainText);
}

void WrittenFileLine::Show(const QString& kind, const QString& path) {
    path_ = path;
    setText(kind + ": " + path);
    setToolTip("Click to open " + path);
    setCursor(Qt::PointingHandCursor);
}

void WrittenFileLine::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !path_.isEmpty() && rect().contains(event->position().toPoint())) {
        emit OpenRequested(path_);
    }
    QLabel::mouseReleaseEvent(event);
}

}  // namespace tessarin
