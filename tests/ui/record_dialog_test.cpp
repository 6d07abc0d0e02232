#include "ui/record_dialog.h"

#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "modal_answer.h"
#include "support/temp_folder.h"

namespace tessarin {

using testing::AnswerModal;

// The record list of a multi-record FASTA file and what picking from it answers.
class RecordDialogTest : public QObject {
    Q_OBJECT

  private:
    testing::TempFolder folder_;

  private slots:
    void initTestCase() {
        folder_.Write("genes.fa", ">rpoB beta\nACGT\nAC\n>gyrA\nTTGA\n>16S\nG\n");
        folder_.Write("one.fa", ">rpoB\nACGT\n");
        folder_.Write("genes.txt", ">rpoB\nACGT\n>gyrA\nTTGA\n");
        folder_.Write("empty.fa", "");
    }

    // Catches the description or line breaks counted in a length, records out of file order, and
    // no record selected at the start (OK would then pick nothing).
    void listsIdAndLengthOfEveryRecord() {
        RecordDialog dialog("genes.fa", {{"rpoB", "ACGTAC"}, {"gyrA", "TTGA"}, {"16S", "G"}});
        QCOMPARE(dialog.windowTitle(), "Choose Record");
        auto* list = dialog.findChild<QListWidget*>("Records_Lst");
        QVERIFY(list != nullptr);
        QStringList rows;
        for (int row = 0; row < list->count(); ++row)
            rows << list->item(row)->text();
        QCOMPARE(rows, (QStringList{"rpoB  (6 letters)", "gyrA  (4 letters)", "16S  (1 letters)"}));
        QCOMPARE(dialog.ChosenNumber(), 1);
    }

    // Catches the row number answered instead of the ID, Cancel taken as the first record, a
    // one-record file or a file not read as FASTA asking at all, and a bad file ending the program.
    void askRecordAnswersTheChosenIdOrNothing() {
        AnswerModal<RecordDialog>([](RecordDialog* shown) {
            shown->findChild<QListWidget*>("Records_Lst")->setCurrentRow(2);
            shown->findChild<QPushButton*>("OK_Cbt")->click();
        });
        QCOMPARE(AskRecord(nullptr, folder_.Path("genes.fa"), false), std::optional<std::string>("16S"));
        AnswerModal<RecordDialog>([](RecordDialog* shown) { shown->findChild<QPushButton*>("Cancel_Cbt")->click(); });
        QCOMPARE(AskRecord(nullptr, folder_.Path("genes.fa"), false), std::nullopt);
        QCOMPARE(AskRecord(nullptr, folder_.Path("one.fa"), false), std::optional<std::string>(""));
        QCOMPARE(AskRecord(nullptr, folder_.Path("genes.txt"), false), std::optional<std::string>(""));
        AnswerModal<RecordDialog>([](RecordDialog* shown) { shown->accept(); });
        QCOMPARE(AskRecord(nullptr, folder_.Path("genes.txt"), true), std::optional<std::string>("rpoB"));
        QString message;
        AnswerModal<QMessageBox>([&message](QMessageBox* box) {
            message = box->text();
            box->accept();
        });
        QCOMPARE(AskRecord(nullptr, folder_.Path("empty.fa"), false), std::nullopt);
        QVERIFY2(message.endsWith("empty.fa: it is empty"), qPrintable(message));
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::RecordDialogTest)
#include "record_dialog_test.moc"
