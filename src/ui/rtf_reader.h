#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace tessarin {

// A stretch of text in one character format.
struct RtfRun {
    QString text;
    bool bold = false;
    bool italic = false;
};

// The visible text of an RTF document with its bold and italic stretches. Destinations that are
// not body text (font and colour tables, style sheets, document info, pictures, fields'
// instructions, anything marked "\*") are skipped; paragraphs end with "\n". Enough of RTF for
// help files, not a layout engine.
std::vector<RtfRun> ReadRtf(const QByteArray& rtf);

// The runs' text without formats.
QString PlainText(const std::vector<RtfRun>& runs);

}  // namespace tessarin
