#include "ui/table_export_menu.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include "main_form_under_test.h"
#include "modal_answer.h"
#include "support/temp_folder.h"
#include "ui/grammar_form.h"
#include "ui/main_form.h"
#include "ui/text_form.h"

namespace tessarin {

using testing::AnswerModal;
using testing::StartMainForm;
using testing::StopMainForm;
using testing::TempFolder;
using testing::TriggerAndWait;

namespace {

// Answers the next file dialog with `path`.
void ChooseFile(const std::string& path) {
    AnswerModal<QFileDialog>([path](QFileDialog* dialog) {
        if (QWidget* focused = dialog->focusWidget()) focused->clearFocus();
        dialog->selectFile(QString::fromStdString(path));
        static_cast<QDialog*>(dialog)->accept();  // QFileDialog hides accept()
    });
}

// The visible report window whose title ends with `log_name`, or nullptr.
TextForm* ReportWindow(const QString& log_name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* form = qobject_cast<TextForm*>(widget);
        if (form != nullptr && form->isVisible() && form->windowTitle().endsWith(log_name)) return form;
    }
    return nullptr;
}

}  // namespace

class TableExportMenuTest : public QObject {
    Q_OBJECT

  private:
    TempFolder program_folder_;
    TempFolder data_;
    MainForm* form_ = nullptr;

  private slots:
    void init() { form_ = StartMainForm(program_folder_); }

    void cleanup() { StopMainForm(form_); }

    // The entropies' window offers the table and saves it, proposing the log's name with ".tsv".
    // Catches the item missing, offered in another window, a proposed name beside the wrong
    // folder, or a saved file that is not the run's table (one row per entropy line of the log).
    void entropyReportSavesItsTable() {
        data_.Write("seq.txt", "ACGTACGTTTGACGTAACGACGT\r\n");
        ChooseFile(data_.Path("seq.txt"));
        QVERIFY(TriggerAndWait(form_, "Calc_PartialEntropies"));
        TextForm* report = ReportWindow("seq.log");
        QVERIFY(report != nullptr);
        QAction* save = report->findChild<QAction*>("File_SaveTableAs");
        QVERIFY(save != nullptr);
        QCOMPARE(save->text().remove('&'), QString("Save Table As..."));

        QString proposed;
        AnswerModal<QFileDialog>([&](QFileDialog* dialog) {
            proposed = dialog->selectedFiles().value(0);
            if (QWidget* focused = dialog->focusWidget()) focused->clearFocus();
            dialog->selectFile(QString::fromStdString(data_.Path("saved.tsv")));
            static_cast<QDialog*>(dialog)->accept();
        });
        save->trigger();
        QCOMPARE(proposed, QString::fromStdString(data_.Path("seq.tsv")));
        const QStringList rows = QString::fromStdString(data_.Read("saved.tsv")).split('\n', Qt::SkipEmptyParts);
        QVERIFY(rows.size() > 1);
        QCOMPARE(rows.front(), QString("n\tH_n\tH_n/n\th_(n-1)"));
        const QStringList entropy_lines = QString::fromStdString(data_.Read("seq.log"))
                                              .split("\r\n")
                                              .filter(QRegularExpression("^Entropy H\\d+ =.*\\t"));
        QCOMPARE(rows.size() - 1, entropy_lines.size());
        QVERIFY(rows[1].startsWith("1\t"));
    }

    // A report that is no table (one file's grammar) offers none. Catches a table left over from
    // an earlier run offered in a later report's window.
    void reportWithoutTableOffersNone() {
        data_.Write("a.txt", "ABABABABAB\r\n");
        ChooseFile(data_.Path("a.txt"));
        QVERIFY(TriggerAndWait(form_, "Calc_PartialEntropies"));
        QVERIFY(ReportWindow("a.log") != nullptr);
        form_->findChild<QAction*>("View_CloseallTextWindows")->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        data_.Write("b.txt", "ABABABABAB\r\n");
        AnswerModal<Grammar_Form>([this](Grammar_Form* options) {
            options->findChild<QPushButton*>("OK_Cbt")->click();  // one file, the first method
            ChooseFile(data_.Path("b.txt"));
        });
        QVERIFY(TriggerAndWait(form_, "Calc_GrammarComplexity"));
        TextForm* report = ReportWindow("b.log");
        QVERIFY(report != nullptr);
        QVERIFY(report->findChild<QAction*>("File_SaveTableAs") == nullptr);
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::TableExportMenuTest)
#include "table_export_menu_test.moc"
