#include "ui/fonts.h"

#include <QFontDatabase>
#include <QStringList>

namespace tessarin {
namespace {

bool IsInstalled(const QString& family) {
    return QFontDatabase::families().contains(family, Qt::CaseInsensitive);
}

}  // namespace

QFont FixedPitchFont() {
    if (IsInstalled("Courier New")) return QFont("Courier New");
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

QFont SerifFont() {
    if (IsInstalled("Times New Roman")) return QFont("Times New Roman");
    QFont font("serif");  // fontconfig's alias for the system serif face
    font.setStyleHint(QFont::Serif);
    return font;
}

}  // namespace tessarin
