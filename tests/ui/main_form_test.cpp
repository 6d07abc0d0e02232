#include "ui/main_form.h"

#include <QAbstractButton>
#include <QAction>
#include <QFileDialog>
#include <QImage>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <chrono>
#include <future>
#include <thread>

#include "modal_answer.h"
#include "support/temp_folder.h"
#include "ui/grammar_form.h"
#include "ui/text_form.h"

namespace tessarin {

using testing::AnswerModal;
using testing::TempFolder;

// Stands in for the plot windows that Close All Plot Windows finds by their form name.
class Plot_Form : public QWidget {
    Q_OBJECT
};

namespace {

QList<QWidget*> VisibleTopLevels(const char* class_name) {
    QList<QWidget*> found;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->inherits(class_name)) found << widget;
    }
    return found;
}

TextForm* VisibleTextForm(const QString& caption) {
    for (QWidget* widget : VisibleTopLevels("tessarin::TextForm")) {
        if (widget->windowTitle() == caption) return static_cast<TextForm*>(widget);
    }
    return nullptr;
}

}  // namespace

class MainFormTest : public QObject {
    Q_OBJECT

  private:
    TempFolder program_folder_;
    TempFolder data_;
    MainForm* form_ = nullptr;

    QAction* Action(const char* name) const { return form_->findChild<QAction*>(name); }

    // Runs a flow as a menu command would and waits until the window has handled its end.
    void RunToEnd(CommandFlow flow) {
        QSignalSpy finished(form_, &MainForm::CommandFinished);
        form_->StartCommand(std::move(flow));
        QVERIFY(finished.wait(10000));
    }

    void TriggerAndWait(const char* action_name) {
        QSignalSpy finished(form_, &MainForm::CommandFinished);
        Action(action_name)->trigger();
        QVERIFY(finished.wait(10000));
    }

  private slots:
    void init() {
        form_ = new MainForm(program_folder_.Folder());
        form_->show();
    }

    void cleanup() {
        delete form_;
        // Guarded: deleting a window also deletes its menus, which are top-level widgets too.
        QList<QPointer<QWidget>> windows;
        for (QWidget* widget : QApplication::topLevelWidgets())
            windows << widget;
        for (const QPointer<QWidget>& widget : windows) {
            if (widget && (widget->inherits("tessarin::TextForm") || widget->inherits("tessarin::Plot_Form")))
                delete widget;
        }
    }

    void displaySequenceFile_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("lines");
        // Catches the command not reaching the window, or lines lost or reordered on the way.
        QTest::newRow("dna") << QByteArray("ACGT\r\nTTGA\r\n")
                             << QStringList{"Display Sequence File",
                                            "Sequence seq.txt",
                                            "Sequence Length = 8",
                                            "Alphabet Size = 4 letters",
                                            "Alphabet: ACGT",
                                            "",
                                            "Entropy H1 = - Sum P*Log(P) = .9528195"};
        // Catches 8-bit symbols decoded as UTF-8 (and lost) on the way to the window.
        QTest::newRow("8-bit letter") << QByteArray("A\xe9")
                                      << QStringList{"Display Sequence File",
                                                     "Sequence seq.txt",
                                                     "Sequence Length = 2",
                                                     "Alphabet Size = 2 letters",
                                                     QString::fromUtf8("Alphabet: A\u00e9"),
                                                     "",
                                                     "Entropy H1 = - Sum P*Log(P) = 1"};
    }

    void displaySequenceFile() {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, lines);
        data_.Write("seq.txt", bytes.toStdString());
        QString dialog_title;
        AnswerModal<QFileDialog>([&](QFileDialog* dialog) {
            dialog_title = dialog->windowTitle();
            dialog->selectFile(QString::fromStdString(data_.Path("seq.txt")));
            static_cast<QDialog*>(dialog)->accept();  // QFileDialog hides accept()
        });
        TriggerAndWait("View_DisplaySequenceFile");
        QCOMPARE(dialog_title, "Open File");
        QCOMPARE(form_->PrintedLines(), lines);
        QVERIFY(VisibleTextForm("Input Sequence: seq.txt") != nullptr);
        QVERIFY(program_folder_.Exists("$logfile.$$$"));
    }

    // Catches a cancelled dialog that still prints or leaves the items greyed out.
    void cancelledFileDialogEndsQuietly() {
        AnswerModal<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
        TriggerAndWait("View_DisplaySequenceFile");
        QCOMPARE(form_->PrintedLines(), QStringList());
        QVERIFY(Action("View_DisplaySequenceFile")->isEnabled());
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

    void keyPressRequestsAbort_data() {
        QTest::addColumn<QString>("target");
        // Catches keys lost when a child of the window has the focus or receives them.
        QTest::newRow("window") << "MainForm";
        QTest::newRow("result lines") << "Results";
        QTest::newRow("menu bar") << "MenuBar";
    }

    void keyPressRequestsAbort() {
        QFETCH(QString, target);
        form_->session().host().PrintMainLine("a line");
        QWidget* widget = target == "MainForm"  ? form_
                          : target == "MenuBar" ? form_->menuBar()
                                                : form_->findChild<QWidget*>(target);
        QVERIFY(widget != nullptr);
        QVERIFY(!form_->session().Aborted());
        QTest::keyClick(widget, Qt::Key_Q);
        QVERIFY(form_->session().Aborted());
    }

    // Catches a command that starts with the flag of an earlier key press still set.
    void nextCommandClearsTheAbortFlag() {
        QTest::keyClick(form_, Qt::Key_Space);
        bool aborted_at_start = true;
        RunToEnd([&aborted_at_start](Session& session) {
            aborted_at_start = session.Aborted();
            return Outcome::kCompleted;
        });
        QVERIFY(!aborted_at_start);
    }

    // Catches a second command started beside a running one, and items left greyed out (or
    // unfinished analyses switched on) after the run.
    void commandItemsDisabledWhileRunning() {
        std::promise<void> gate;
        std::shared_future<void> opened = gate.get_future().share();
        QSignalSpy finished(form_, &MainForm::CommandFinished);
        form_->StartCommand([opened](Session&) {
            opened.wait();
            return Outcome::kCompleted;
        });
        QVERIFY(form_->CommandRunning());
        QVERIFY(!Action("View_DisplaySequenceFile")->isEnabled());
        QVERIFY(!Action("Edit_CreateTestSequence")->isEnabled());
        QVERIFY(!Action("File_SaveImageAs")->isEnabled());
        QVERIFY(Action("Help_About")->isEnabled());
        QVERIFY(Action("File_Exit")->isEnabled());
        bool second_ran = false;
        form_->StartCommand([&second_ran](Session&) {
            second_ran = true;
            return Outcome::kCompleted;
        });
        gate.set_value();
        QVERIFY(finished.wait(10000));
        QVERIFY(!second_ran);
        QVERIFY(Action("View_DisplaySequenceFile")->isEnabled());
        QVERIFY(!Action("Calc_SurrogateStatistics")->isEnabled());
        QCOMPARE(finished.count(), 1);
    }

    // Catches the window (and the session the worker uses) going away mid-run, or the run not cancelled.
    void exitDuringARunCancelsItAndClosesAfterwards() {
        QSignalSpy finished(form_, &MainForm::CommandFinished);
        form_->StartCommand([](Session& session) {
            while (!session.Aborted())
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            return Outcome::kCancelled;
        });
        Action("File_Exit")->trigger();
        QVERIFY(form_->isVisible());
        QVERIFY(finished.wait(10000));
        QVERIFY(!form_->isVisible());
    }

    // Questions from the worker are answered on the GUI thread, after the lines printed before
    // them. Catches answers lost between threads and lines overtaken by dialogs.
    void workerQuestionsAreAnsweredInOrder() {
        QStringList lines_at_question;
        QString question_title;
        AnswerModal<QMessageBox>([&](QMessageBox* box) {
            lines_at_question = form_->PrintedLines();
            question_title = box->windowTitle();
            box->button(QMessageBox::Yes)->click();
            AnswerModal<QInputDialog>([](QInputDialog* input) {
                input->setTextValue("7");
                input->accept();
            });
        });
        bool yes = false;
        std::optional<std::string> length;
        RunToEnd([&](Session& session) {
            session.host().PrintMainLine("before");
            yes = session.host().AskYesNo("Continue?", "TESSARIN");
            length = session.host().AskInput("Specify Maximum Word Length", "Repeated Subwords", "5");
            return Outcome::kCompleted;
        });
        QCOMPARE(lines_at_question, QStringList{"before"});
        QCOMPARE(question_title, "TESSARIN");
        QVERIFY(yes);
        QCOMPARE(length, std::optional<std::string>("7"));
    }

    void failureInCommandBecomesMessage() {
        QString message;
        AnswerModal<QMessageBox>([&message](QMessageBox* box) {
            message = box->text();
            box->accept();
        });
        RunToEnd([](Session&) -> Outcome { throw std::runtime_error("Cannot read the sequence file x.txt"); });
        // Catches an exception escaping the worker (the program would end) instead of a message.
        QCOMPARE(message, "Cannot read the sequence file x.txt");
        QVERIFY(!form_->CommandRunning());
    }

    // Catches the test sequence command not wired, or written elsewhere than the program folder.
    void createTestSequence() {
        TriggerAndWait("Edit_CreateTestSequence");
        QCOMPARE(program_folder_.Read("test.txt").size(), std::size_t{40000 + 2});
    }

    void subwordCommandsRunFromTheMenu_data() {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("length_title");  // the maximum word length box, if the command asks
        QTest::addColumn<QString>("first_line");
        // Each row catches an item wired to no analysis, to the wrong one, or with the positions flag lost.
        QTest::newRow("entropies") << "Calc_PartialEntropies"
                                   << ""
                                   << "Compute Partial Entropies  - Press any key to cancel";
        QTest::newRow("uncertainties") << "Calc_ConditionalEntropies"
                                       << ""
                                       << "Compute Local Conditional Uncertainties - Press any key to cancel";
        QTest::newRow("repeats") << "Subwords_WithPositions_0"
                                 << "Repeated Subwords"
                                 << "Find Repeated Words  - Press any key to cancel";
        QTest::newRow("exceptional") << "Exceptional_WithPositions_1"
                                     << "Exceptional Subwords"
                                     << "Find Exceptional Words  - Press any key to cancel";
    }

    void subwordCommandsRunFromTheMenu() {
        QFETCH(QString, action);
        QFETCH(QString, length_title);
        QFETCH(QString, first_line);
        data_.Write("dna.txt", "ACGTACGTTTGACGTAACG\r\n");
        QString asked_title;
        AnswerModal<QFileDialog>([&](QFileDialog* dialog) {
            dialog->selectFile(QString::fromStdString(data_.Path("dna.txt")));
            static_cast<QDialog*>(dialog)->accept();
            if (length_title.isEmpty()) return;
            AnswerModal<QInputDialog>([&asked_title](QInputDialog* input) {
                asked_title = input->windowTitle();
                input->setTextValue("3");
                input->accept();
            });
        });
        TriggerAndWait(action.toLatin1().constData());
        QCOMPARE(asked_title, length_title);
        const QStringList lines = form_->PrintedLines();
        QVERIFY(!lines.isEmpty());
        QCOMPARE(lines.first(), first_line);
        QVERIFY2(lines.last().startsWith("Time needed ="), qPrintable(lines.last()));
        bool report_shown = false;
        for (QWidget* window : VisibleTopLevels("tessarin::TextForm"))
            report_shown = report_shown || window->windowTitle().endsWith(".log");
        QVERIFY(report_shown);
    }

    // Catches the options form's choice not kept for the next run, or the run not started after OK.
    void grammarComplexityRunsAfterTheOptionsForm() {
        data_.Write("dna.txt", "ACGTACGTTTGACGTAACGACGT\r\n");
        AnswerModal<Grammar_Form>([this](Grammar_Form* options) {
            options->findChild<QRadioButton*>("Method_Obt_3")->click();
            options->findChild<QPushButton*>("OK_Cbt")->click();
            AnswerModal<QFileDialog>([this](QFileDialog* dialog) {
                dialog->selectFile(QString::fromStdString(data_.Path("dna.txt")));
                static_cast<QDialog*>(dialog)->accept();
            });
        });
        TriggerAndWait("Calc_GrammarComplexity");
        const QStringList lines = form_->PrintedLines();
        QVERIFY(!lines.isEmpty());
        QCOMPARE(lines.first(), "Compute Grammar Complexity  - Press any key to cancel");
        QVERIFY2(lines.last().startsWith("Time needed ="), qPrintable(lines.last()));
        QCOMPARE(form_->session().grammar_settings().method, 3);
        QCOMPARE(form_->session().grammar_settings().options, 1);
    }

    // Catches a cancelled options form that still starts a run.
    void cancelledGrammarOptionsStartNothing() {
        AnswerModal<Grammar_Form>(
            [](Grammar_Form* options) { options->findChild<QPushButton*>("Cancel_Cbt")->click(); });
        Action("Calc_GrammarComplexity")->trigger();
        QVERIFY(!form_->CommandRunning());
        QCOMPARE(form_->PrintedLines(), QStringList());
    }

    // Catches the references item not wired, or its text not shown.
    void referencesAreWrittenAndShown() {
        TriggerAndWait("Help_Literature");
        QVERIFY(VisibleTextForm(QString::fromStdString(program_folder_.Path("Reference.txt"))) != nullptr);
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
        const QString refused = QString::fromStdString(data_.Path("my image.bmp"));
        QString message;
        bool asked_again = false;
        AnswerModal<QFileDialog>([&](QFileDialog* dialog) {
            dialog->selectFile(refused);
            static_cast<QDialog*>(dialog)->accept();
            AnswerModal<QMessageBox>([&](QMessageBox* box) {
                message = box->windowTitle() + ": " + box->text();
                box->accept();
                AnswerModal<QFileDialog>([&](QFileDialog* again) {
                    asked_again = true;
                    again->reject();
                });
            });
        });
        Action("File_SaveImageAs")->trigger();
        QCOMPARE(message, "TESSARIN: Please don't use filenames with spaces.");
        QVERIFY(asked_again);
        QVERIFY(!data_.Exists("my image.bmp"));
    }

    // Catches the help file not copied beside the program, or shown as raw codes.
    void usingTessarinShowsTheHelpText() {
        Action("Help_UsingTessarin")->trigger();
        TextForm* help = VisibleTextForm("Using Tessarin");
        QVERIFY(help != nullptr);
        QVERIFY(help->Text().startsWith("Using Tessarin\n"));
        QVERIFY(!help->Text().contains("\\par"));
    }

    void closeAllWindowsOfOneKind_data() {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("closed");
        QTest::addColumn<QString>("kept");
        // Each row catches one kind of window closing the other kind, or none.
        QTest::newRow("text") << "View_CloseallTextWindows"
                              << "tessarin::TextForm"
                              << "tessarin::Plot_Form";
        QTest::newRow("plot") << "View_CloseallPlotWindows"
                              << "tessarin::Plot_Form"
                              << "tessarin::TextForm";
    }

    void closeAllWindowsOfOneKind() {
        QFETCH(QString, action);
        QFETCH(QString, closed);
        QFETCH(QString, kept);
        form_->session().host().ShowText("Input Sequence: a.txt", "ACGT");
        form_->session().host().ShowText("Input Sequence: b.txt", "TTGA");
        (new Plot_Form())->show();
        Action(action.toLatin1().constData())->trigger();
        QCOMPARE(VisibleTopLevels(closed.toLatin1().constData()).size(), 0);
        QVERIFY(!VisibleTopLevels(kept.toLatin1().constData()).isEmpty());
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::MainFormTest)
#include "main_form_test.moc"
