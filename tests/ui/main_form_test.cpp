#include "ui/main_form.h"

#include <QAction>
#include <QFileDialog>
#include <QImage>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

#include "file_answer.h"
#include "main_form_under_test.h"
#include "modal_answer.h"
#include "support/temp_folder.h"
#include "ui/generate_form.h"
#include "ui/grammar_form.h"
#include "ui/plot_form.h"
#include "ui/record_dialog.h"
#include "ui/surrogate_form.h"

namespace tessarin {

using testing::AnswerModal;
using testing::ChooseFileThen;
using testing::StartMainForm;
using testing::StopMainForm;
using testing::TempFolder;
using testing::TriggerAndWait;

class MainFormTest : public QObject {
    Q_OBJECT

  private:
    TempFolder program_folder_;
    TempFolder data_;
    MainForm* form_ = nullptr;

    QAction* Action(const QString& name) const { return form_->findChild<QAction*>(name); }

    // Runs a flow as a menu command would and waits until the window has handled its end.
    void RunToEnd(CommandFlow flow) {
        QSignalSpy finished(form_, &MainForm::CommandFinished);
        form_->StartCommand(std::move(flow));
        QVERIFY(finished.wait(10000));
    }

  private slots:
    void init() { form_ = StartMainForm(program_folder_); }

    void cleanup() { StopMainForm(form_); }

    // Catches the command not reaching the window, lines lost or reordered on the way, or 8-bit
    // symbols decoded as UTF-8 (and lost).
    void displaySequenceFile() {
        data_.Write("seq.txt", "ACGT\r\nTTG\xe9\r\n");
        ChooseFileThen(data_.Path("seq.txt"));
        QVERIFY(TriggerAndWait(form_, "View_DisplaySequenceFile"));
        QCOMPARE(form_->PrintedLines(),
                 (QStringList{"Display Sequence File", "Sequence seq.txt", "Sequence Length = 8",
                              "Alphabet Size = 5 letters", QString::fromUtf8("Alphabet: ACGT\u00e9"), "",
                              "Entropy H1 = - Sum P*Log(P) = .9283832"}));
        QVERIFY(std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget* window) {
            return window->isVisible() && window->windowTitle() == "Input Sequence: seq.txt";
        }));
    }

    // Two Busy calls within 0.1 s change the caption once; the wait cursor lasts exactly as long
    // as the progress display. Catches a missing throttle, reordered captions, or a stuck cursor.
    void progressInCaption() {
        QStringList captions;
        QList<bool> waiting;
        connect(form_, &QWidget::windowTitleChanged, this, [&](const QString& caption) {
            captions << caption;
            waiting << (QApplication::overrideCursor() != nullptr &&
                        QApplication::overrideCursor()->shape() == Qt::WaitCursor);
        });
        double now = 0;
        form_->session().SetClock([&now] { return now; });
        RunToEnd([&now](Session& session) {
            now = 100;
            session.Busy("Find Words len = 3", 0);
            now = 100.05;
            session.Busy("Find Words len = 3", 0.4512F);
            now = 100.2;
            session.Busy("Find Words len = 3", 0.5F);
            session.Busy("Find Words len = 3", 1);
            return Outcome::kCompleted;
        });
        QCOMPARE(captions,
                 (QStringList{"Find Words len = 3: done 0%", "Find Words len = 3: done 50%", MainForm::kRestCaption}));
        QCOMPARE(waiting, (QList<bool>{true, true, false}));
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }

    void keyPressAbortsUntilTheNextCommand_data() {
        QTest::addColumn<QString>("target");
        // Each row catches keys lost when that part of the window has the focus or receives them.
        QTest::newRow("window") << "";
        QTest::newRow("result lines") << "Results";
        QTest::newRow("menu bar") << "MenuBar";
    }

    // Also catches a command that starts with the flag of an earlier key press still set.
    void keyPressAbortsUntilTheNextCommand() {
        QFETCH(QString, target);
        form_->session().host().PrintMainLine("a line");
        QWidget* widget = target.isEmpty()      ? form_
                          : target == "MenuBar" ? form_->menuBar()
                                                : form_->findChild<QWidget*>(target);
        QVERIFY(widget != nullptr);
        QVERIFY(!form_->session().Aborted());
        QTest::keyClick(widget, Qt::Key_Q);
        QVERIFY(form_->session().Aborted());
        bool aborted_at_start = true;
        RunToEnd([&aborted_at_start](Session& session) {
            aborted_at_start = session.Aborted();
            return Outcome::kCompleted;
        });
        QVERIFY(!aborted_at_start);
    }

    // Catches a second command started beside a running one, items left greyed out (or unfinished
    // analyses switched on) after the run, a window that Exit leaves on screen until the run has
    // stopped, or the session the worker still uses going away before the cancelled run has ended.
    void itemsDisabledWhileRunningAndExitWaitsForTheRun() {
        QSignalSpy finished(form_, &MainForm::CommandFinished);
        form_->StartCommand([](Session& session) {
            while (!session.Aborted())
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            std::this_thread::sleep_for(std::chrono::milliseconds(100));  // a last pass after the cancel
            session.sequence().text = "still here";
            return Outcome::kCancelled;
        });
        QVERIFY(!Action("View_DisplaySequenceFile")->isEnabled());
        QVERIFY(!Action("File_SaveImageAs")->isEnabled());
        QVERIFY(Action("File_Exit")->isEnabled());
        bool second_ran = false;
        form_->StartCommand([&second_ran](Session&) {
            second_ran = true;
            return Outcome::kCompleted;
        });
        Action("File_Exit")->trigger();
        QVERIFY(!form_->isVisible());
        QVERIFY(form_->CommandRunning());
        QVERIFY(QApplication::overrideCursor() != nullptr);
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        QVERIFY(finished.wait(10000));
        QVERIFY(!form_->isVisible());
        QCOMPARE(QApplication::overrideCursor(), nullptr);
        QVERIFY(!second_ran);
        QVERIFY(Action("View_DisplaySequenceFile")->isEnabled());
        QVERIFY(Action("Calc_SurrogateStatistics")->isEnabled());
    }

    void subwordCommandsRunFromTheMenu_data() {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("length_title");  // the maximum word length box, if the command asks
        QTest::addColumn<QString>("first_line");
        QTest::addColumn<bool>("positions");
        // Each row catches an item wired to no analysis or to the wrong one, a box not answered, or
        // the positions flag swapped.
        QTest::newRow("entropies") << "Calc_PartialEntropies"
                                   << ""
                                   << "Compute Partial Entropies  - Press any key to cancel" << false;
        QTest::newRow("uncertainties") << "Calc_ConditionalEntropies"
                                       << ""
                                       << "Compute Local Conditional Uncertainties - Press any key to cancel" << false;
        QTest::newRow("repeats") << "Subwords_WithPositions_0"
                                 << "Repeated Subwords"
                                 << "Find Repeated Words  - Press any key to cancel" << true;
        QTest::newRow("exceptional") << "Exceptional_WithPositions_1"
                                     << "Exceptional Subwords"
                                     << "Find Exceptional Words  - Press any key to cancel" << false;
    }

    void subwordCommandsRunFromTheMenu() {
        QFETCH(QString, action);
        QFETCH(QString, length_title);
        QFETCH(QString, first_line);
        const std::string base = QTest::currentDataTag();  // the folder outlives a row: fresh report names
        data_.Write(base + ".txt", "ACGTACGTTTGACGTAACG\r\n");
        QString asked_title;
        ChooseFileThen(data_.Path(base + ".txt"), [&] {
            if (length_title.isEmpty()) return;
            AnswerModal<QInputDialog>([&asked_title](QInputDialog* input) {
                asked_title = input->windowTitle();
                input->setTextValue("3");
                input->accept();
            });
        });
        QVERIFY(TriggerAndWait(form_, action));
        QCOMPARE(asked_title, length_title);
        const QStringList lines = form_->PrintedLines();
        QVERIFY(!lines.isEmpty());
        QCOMPARE(lines.first(), first_line);
        QVERIFY2(lines.last().startsWith("Time needed ="), qPrintable(lines.last()));
        QTEST(data_.Read(base + "_lst.log").find("Positions:") != std::string::npos, "positions");
    }

    // Catches the options form's choice not kept for the next run, or the run not started after OK.
    void grammarComplexityRunsAfterTheOptionsForm() {
        data_.Write("dna.txt", "ACGTACGTTTGACGTAACGACGT\r\n");
        AnswerModal<Grammar_Form>([this](Grammar_Form* options) {
            options->findChild<QRadioButton*>("Method_Obt_3")->click();
            options->findChild<QPushButton*>("OK_Cbt")->click();
            ChooseFileThen(data_.Path("dna.txt"));
        });
        QVERIFY(TriggerAndWait(form_, "Calc_GrammarComplexity"));
        const QStringList lines = form_->PrintedLines();
        QVERIFY(!lines.isEmpty());
        QCOMPARE(lines.first(), "Compute Grammar Complexity  - Press any key to cancel");
        // ACGT occurs four times: Maximum Gain makes at least one rule and prints its pass.
        QVERIFY(!lines.filter(QRegularExpression("^Pass \\d+: Rule Length = \\d+$")).isEmpty());
        QVERIFY2(lines.last().startsWith("Time needed ="), qPrintable(lines.last()));
        QCOMPARE(form_->session().grammar_settings().method, 3);
        QCOMPARE(form_->session().grammar_settings().options, 1);
    }

    // Catches the second file not asked for, or the log not placed beside the program's folder.
    void algorithmicDistanceAsksForTwoFiles() {
        data_.Write("x.txt", "ACGTACGTTTGACGTAACG\r\n");
        data_.Write("y.txt", "ACGTTTTTGACGTAACGGG\r\n");
        ChooseFileThen(data_.Path("x.txt"), [this] { ChooseFileThen(data_.Path("y.txt")); });
        QVERIFY(TriggerAndWait(form_, "Calc_AlgorithmicDistance"));
        const QStringList lines = form_->PrintedLines();
        QVERIFY(!lines.filter(QRegularExpression("^Algorithmic Distance D\\(x,y\\) = ")).isEmpty());
        QVERIFY2(lines.last().startsWith("Time needed ="), qPrintable(lines.last()));
        std::string folder = program_folder_.Folder();
        folder.pop_back();
        QVERIFY(std::filesystem::exists(folder + "distance.log"));
    }

    // Catches the tree's exports not offered in its report window.
    void treeReportOffersItsExports() {
        data_.Write("t1.seq", "ACGTACGTTTGACGTAACG\r\n");
        data_.Write("t2.seq", "ACGTTTTTGACGTAACGGG\r\n");
        data_.Write("t3.seq", "TTTTTTTTGACGTAACGGG\r\n");
        ChooseFileThen(data_.Path("t1.seq"));
        QVERIFY(TriggerAndWait(form_, "Calc_BuildTree"));
        const bool offered = std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget* window) {
            return window->isVisible() && window->windowTitle().contains("Similar") &&
                   window->findChild<QAction*>("File_SaveTreeAs") != nullptr;
        });
        QVERIFY(offered);
    }

    // Catches a multi-record FASTA file read as plain text (its headers counted as symbols), the
    // picked record not the one analysed, or the tree over such a file not run over its records.
    void multiFastaFileGivesARecordAndATreeOverItsRecords() {
        const TempFolder fasta;  // its own folder: the tree's log name must not be taken already
        fasta.Write("genes.fa", ">alpha first\nACGTACGTTT\nGACG\n>beta\nTTTTACGTAACGGG\n>gamma\nACGTTTTTGACGTAACGGG\n");
        ChooseFileThen(fasta.Path("genes.fa"), [] {
            AnswerModal<RecordDialog>([](RecordDialog* records) {
                records->findChild<QListWidget*>("Records_Lst")->setCurrentRow(1);
                records->accept();
            });
        });
        QVERIFY(TriggerAndWait(form_, "View_DisplaySequenceFile"));
        QVERIFY2(form_->PrintedLines().contains("Sequence Length = 14"), qPrintable(form_->PrintedLines().join('|')));
        ChooseFileThen(fasta.Path("genes.fa"));
        QVERIFY(TriggerAndWait(form_, "Calc_BuildTree"));
        const std::string log = fasta.Read("Similar.log");
        for (const char* id : {"alpha", "beta", "gamma"})
            QVERIFY2(log.find(id) != std::string::npos, id);
    }

    // Catches the options form, the save dialog or the plot window missing from a generation.
    void generateWritesTheSeriesAndPlotsIt() {
        AnswerModal<Generate_Form>([this](Generate_Form* options) {
            options->findChild<QPushButton*>("OK_Cbt")->click();
            ChooseFileThen(data_.Path("white.txt"));
        });
        QVERIFY(TriggerAndWait(form_, "Edit_GenerateSequence"));
        QCOMPARE(data_.Read("white.txt").size(), 1002U);  // 1000 symbols and CR LF
        QVERIFY(std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget* window) {
            return window->isVisible() && qobject_cast<Plot_Form*>(window) != nullptr;
        }));
    }

    // Catches the surrogate form's count not reaching the run.
    void surrogateFilesAfterTheOptionsForm() {
        data_.Write("s.txt", "ACGTACGTTTGACGTAACG\r\n");
        AnswerModal<Surrogate_Form>([this](Surrogate_Form* options) {
            options->findChild<QLineEdit*>("Number_Tbx")->setText("2");
            options->findChild<QPushButton*>("OK_Cbt")->click();
            ChooseFileThen(data_.Path("s.txt"));
        });
        QVERIFY(TriggerAndWait(form_, "File_MakeSurrogateFiles"));
        QVERIFY(data_.Exists("s_1.txt"));
        QVERIFY(data_.Exists("s_2.txt"));
        QVERIFY(!data_.Exists("s_3.txt"));
    }

    // Catches a wrong default name or a failed bitmap write.
    void saveImageAsWritesBitmap() {
        form_->session().sequence().folder = data_.Folder();
        form_->session().sequence().file_name = "dna.seq.txt";
        QString offered;
        AnswerModal<QFileDialog>([&offered](QFileDialog* dialog) {
            offered = dialog->selectedFiles().value(0);
            static_cast<QDialog*>(dialog)->accept();
        });
        Action("File_SaveImageAs")->trigger();
        QCOMPARE(offered, QString::fromStdString(data_.Path("dna.bmp")));
        QVERIFY(data_.Read("dna.bmp").rfind("BM", 0) == 0);
        QCOMPARE(QImage(offered).size(), form_->centralWidget()->size());
    }

    // Catches a refused name written anyway, or the dialog not offered again to correct it.
    void saveImageAsRefusesNameWithSpaces() {
        QString message;
        bool asked_again = false;
        ChooseFileThen(data_.Path("my image.bmp"), [&] {
            AnswerModal<QMessageBox>([&](QMessageBox* box) {
                message = box->text();
                box->accept();
                AnswerModal<QFileDialog>([&](QFileDialog* again) {
                    asked_again = true;
                    again->reject();
                });
            });
        });
        Action("File_SaveImageAs")->trigger();
        QCOMPARE(message, "Please don't use filenames with spaces.");
        QVERIFY(asked_again);
        QVERIFY(!data_.Exists("my image.bmp"));
    }

    // Catches a dropped file not displayed, a folder taken for a sequence, or the next file
    // dialog not starting where the dropped file lies.
    void droppedFileIsDisplayedAndItsFolderKept() {
        data_.Write("dropped.txt", "ACGT\r\n");
        QMimeData folder;
        folder.setUrls({QUrl::fromLocalFile(QString::fromStdString(data_.Path("")))});
        QDragEnterEvent refused(QPoint(20, 20), Qt::CopyAction, &folder, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(form_, &refused);
        QVERIFY(!refused.isAccepted());

        QMimeData file;
        file.setUrls({QUrl::fromLocalFile(QString::fromStdString(data_.Path("dropped.txt")))});
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(form_, &enter);
        QVERIFY(enter.isAccepted());
        QSignalSpy finished(form_, &MainForm::CommandFinished);
        QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(form_, &drop);
        QVERIFY(finished.wait(10000));
        QVERIFY(std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget* window) {
            return window->isVisible() && window->windowTitle() == "Input Sequence: dropped.txt";
        }));
        QString start;
        AnswerModal<QFileDialog>([&start](QFileDialog* dialog) {
            start = dialog->directory().absolutePath();
            dialog->reject();
        });
        Action("View_DisplaySequenceFile")->trigger();
        QCOMPARE(start, QFileInfo(QString::fromStdString(data_.Path(""))).canonicalFilePath());
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::MainFormTest)
#include "main_form_test.moc"
