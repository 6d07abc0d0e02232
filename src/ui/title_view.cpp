#include "ui/title_view.h"

#include <QPainter>

#include <algorithm>

#include "ui/fonts.h"
#include "version.h"

namespace tessarin {
namespace {

constexpr const char* kMakers = "Tessarin developers, 2026";

// A font whose pixel size follows the window's height, so the image scales with the window.
QFont SizedFont(QFont font, int pixel_size, bool bold, bool italic) {
    font.setPixelSize(std::max(pixel_size, 8));
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

}  // namespace

TitleView::TitleView(QWidget* parent) : QWidget(parent) {
    setAutoFillBackground(true);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(250, 248, 240));
    setPalette(colours);
}

void TitleView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::TextAntialiasing);
    const int h = height();
    const int w = width();

    const QFont title_font = SizedFont(SerifFont(), h / 9, true, true);
    painter.setFont(title_font);
    painter.setPen(QColor(20, 40, 110));
    const int title_step = h / 7;
    int y = h / 12;
    for (const char* word : {"Grammatical", "Complexity", "Analysis"}) {
        painter.drawText(QRect(0, y, w, title_step), Qt::AlignCenter, word);
        y += title_step;
    }

    painter.setFont(SizedFont(SerifFont(), h / 16, false, false));
    painter.setPen(QColor(60, 60, 60));
    painter.drawText(QRect(0, y + h / 20, w, h / 10), Qt::AlignCenter, QString("Version %1").arg(kVersion));

    QFont makers_font;  // the application's sans face
    painter.setFont(SizedFont(makers_font, h / 32, false, false));
    painter.drawText(QRect(0, h - h / 8, w, h / 16), Qt::AlignCenter, kMakers);
}

}  // namespace tessarin
