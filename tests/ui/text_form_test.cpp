#include "ui/text_form.h"

#include <QAction>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTest>

#include "modal_answer.h"
#include "support/temp_folder.h"

namespace tessarin {

using testing::AnswerModal;
using testing::TempFolder;

class TextFormTest : public QObject {
    Q_OBJECT

  private:
    TempFolder folder_;

    QString Path(const char* name) const { return QString::fromStdString(folder_.Path(name)); }

  private slots:
    void saveKeepsTheFileBytes_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("appended");  // typed on a new line before saving
        // Catches line ends normalised on saving.
        QTest::newRow("lf") << QByteArray("one\ntwo\n") << "";
        QTest::newRow("cr") << QByteArray("one\rtwo\r") << "";
        // Catches 8-bit characters re-encoded (as UTF-8) or replaced.
        QTest::newRow("8-bit") << QByteArray("Alphabet: A\xe9\xff\t\x01\r\n") << "";
        // Catches an edit saved with line ends other than the file's own.
        QTest::newRow("edited") << QByteArray("a\r\nb\r\n") << "c";
    }

    void saveKeepsTheFileBytes() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, appended);
        folder_.Write("report.log", bytes.toStdString());
        std::unique_ptr<TextForm> form(TextForm::ForFile(Path("report.log"), nullptr));
        QVERIFY(form != nullptr);
        QCOMPARE(form->windowTitle(), Path("report.log"));
        if (!appended.isEmpty()) form->findChild<QPlainTextEdit*>("Text_Tbx")->appendPlainText(appended);
        QVERIFY(form->Save());
        const QByteArray saved = appended.isEmpty() ? bytes : bytes + "\r\n" + appended.toLatin1();
        QCOMPARE(QByteArray::fromStdString(folder_.Read("report.log")), saved);
    }

    // Catches characters an 8-bit file cannot hold silently written as "?".
    void refusesCharactersBeyondEightBits() {
        folder_.Write("euro.txt", "price\r\n");
        std::unique_ptr<TextForm> form(TextForm::ForFile(Path("euro.txt"), nullptr));
        form->findChild<QPlainTextEdit*>("Text_Tbx")->appendPlainText(QString::fromUtf8("\u20ac 5"));
        QString title;
        AnswerModal<QMessageBox>([&title](QMessageBox* box) {
            title = box->windowTitle();
            box->accept();
        });
        QVERIFY(!form->Save());
        QCOMPARE(title, "TESSARIN");
        QCOMPARE(folder_.Read("euro.txt"), "price\r\n");
    }

    // Catches a long sequence shown on one line, which freezes the window for seconds, or split
    // so that symbols are lost or added.
    void longSequenceIsShownInLines() {
        QString sequence(25000, 'A');
        for (qsizetype i = 0; i < sequence.size(); ++i)
            sequence[i] = QChar("ACGT"[i % 7 % 4]);
        std::unique_ptr<TextForm> form(TextForm::ForText("Input Sequence: long.txt", sequence));
        const QString shown = form->Text();
        QCOMPARE(shown.count('\n'), 2);
        QCOMPARE(QString(shown).remove('\n'), sequence);
        std::unique_ptr<TextForm> short_form(TextForm::ForText("Input Sequence: short.txt", "ACGT"));
        QCOMPARE(short_form->Text(), "ACGT");
    }

    // Catches a report of gigabytes read whole (the program runs out of memory or stops for
    // minutes), a part cut inside a line, or a part saved over the whole report.
    void largeFileIsShownInPartAndNotSaved() {
        std::string report;
        int lines = 0;
        for (; report.size() <= (std::size_t{17} << 20); ++lines)
            report += "Word ACGTACGTACGTACGT occurs " + std::to_string(lines) + " times\r\n";
        folder_.Write("large.log", report);
        std::unique_ptr<TextForm> form(TextForm::ForFile(Path("large.log"), nullptr));
        QVERIFY(form != nullptr);
        const QString shown = form->Text();
        QVERIFY(shown.count('\n') < lines && shown.count('\n') > lines / 2);
        QVERIFY(shown.endsWith(" times\n"));
        QVERIFY(!form->statusBar()->currentMessage().isEmpty());
        QVERIFY(!form->Save());
        QVERIFY(!form->findChild<QAction*>("File_Clear")->isEnabled());
        QCOMPARE(folder_.Read("large.log").size(), report.size());
    }

    // Catches a report line of millions of symbols (a genome's start rule) laid out whole, which
    // freezes the window for seconds, or broken in a window that can still save over the file.
    void longLinesAreShownBrokenAndNotSaved() {
        const std::string rule(25000, 'G');
        folder_.Write("grammar.log", "Rule 0: [0] -> {" + rule + "}\r\nRule 1: [5] -> {AC}\r\n");
        std::unique_ptr<TextForm> form(TextForm::ForFile(Path("grammar.log"), nullptr));
        const QString shown = form->Text();
        QCOMPARE(shown.count('\n'), 4);
        QCOMPARE(QString(shown).remove('\n'),
                 QString::fromStdString("Rule 0: [0] -> {" + rule + "}Rule 1: [5] -> {AC}"));
        QVERIFY(!form->Save());
    }

    // Catches a missing file opening an empty window instead of saying why.
    void unreadableFileGivesAReason() {
        QString error;
        QCOMPARE(TextForm::ForFile(Path("absent.log"), &error), nullptr);
        QVERIFY(error.contains(Path("absent.log")));
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::TextFormTest)
#include "text_form_test.moc"
