#include "ui/qt_text.h"

#include <QFile>
#include <QStringDecoder>

namespace tessarin {

QString FromPath(const std::filesystem::path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

std::filesystem::path ToPath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

QString FromDisplayText(const std::string& text) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString decoded = utf8.decode(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    if (!utf8.hasError()) return decoded;
    return FromBytes(text);
}

QString FromBytes(const std::string& bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

std::string ToBytes(const QString& text) {
    return text.toLatin1().toStdString();
}

}  // namespace tessarin
