#include "ui/rtf_reader.h"

#include <QTest>

namespace tessarin {

class RtfReaderTest : public QObject {
    Q_OBJECT

  private slots:
    void plainText_data() {
        QTest::addColumn<QByteArray>("rtf");
        QTest::addColumn<QString>("text");
        // Catches font names or colour values leaking into the text.
        QTest::newRow("tables skipped") << QByteArray("{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red0;}Hi}") << "Hi";
        // Catches "\*" destinations (unknown to the reader) shown as text.
        QTest::newRow("ignorable destination")
            << QByteArray("{\\rtf1{\\*\\generator Writer 1.0;}A{\\*\\xyz B}C}") << "AC";
        // Catches paragraphs run together or source line breaks taken for text.
        QTest::newRow("par and line") << QByteArray("{\\rtf1 one\\par\r\ntwo\\line three}") << "one\ntwo\nthree";
        QTest::newRow("tab") << QByteArray("{\\rtf1 a\\tab b}") << "a\tb";
        // Catches hex escapes left as codes instead of their 8-bit character.
        QTest::newRow("hex escape") << QByteArray("{\\rtf1 H\\'e9non}") << QString::fromUtf8("H\u00e9non");
        // Catches the blank that ends a control word kept, or a second blank eaten.
        QTest::newRow("delimiter blank") << QByteArray("{\\rtf1 {\\f1  .25}}") << " .25";
        QTest::newRow("escaped braces") << QByteArray("{\\rtf1 \\{x\\}\\\\}") << "{x}\\";
        // Catches the ANSI fallback after \u shown beside the Unicode character.
        QTest::newRow("unicode with fallback")
            << QByteArray("{\\rtf1 \\u8212?x\\uc2\\u8211\\'96\\'96y}") << QString::fromUtf8("\u2014x\u2013y");
        // Catches a skipped group that swallows the rest of the document.
        QTest::newRow("text after skipped group") << QByteArray("{\\rtf1{\\info{\\title T}}after}") << "after";
    }

    void plainText() {
        QFETCH(QByteArray, rtf);
        QFETCH(QString, text);
        QCOMPARE(PlainText(ReadRtf(rtf)), text);
    }

    // Catches formats that outlive their group, or \b0 read as bold.
    void boldAndItalicEndWithTheirGroup() {
        const std::vector<RtfRun> runs = ReadRtf("{\\rtf1 a{\\b b{\\i c}}d\\b e\\b0 f}");
        QCOMPARE(runs.size(), std::size_t{6});
        const bool expected[][2] = {{false, false}, {true, false}, {true, true},
                                    {false, false}, {true, false}, {false, false}};
        for (std::size_t i = 0; i < runs.size(); ++i) {
            QCOMPARE(runs[i].bold, expected[i][0]);
            QCOMPARE(runs[i].italic, expected[i][1]);
        }
        QCOMPARE(PlainText(runs), "abcdef");
    }

    // The shipped help file must read as text: no codes, no font names.
    void helpFileReadsAsText() {
        QFile file(QString(TESSARIN_SOURCE_DIR) + "/src/ui/Tessarin.rtf");
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = PlainText(ReadRtf(file.readAll()));
        QVERIFY(text.startsWith("Using Tessarin\n"));
        QVERIFY(!text.contains('\\'));
        QVERIFY(!text.contains('{'));
        QVERIFY(!text.contains("Arial"));
        QVERIFY(text.contains(QString::fromUtf8("H\u00e9non map")));
    }
};

}  // namespace tessarin

QTEST_GUILESS_MAIN(tessarin::RtfReaderTest)
#include "rtf_reader_test.moc"
