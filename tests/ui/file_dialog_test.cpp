// The file dialogs: the folder they start in, the recent folders they offer, and files that a
// sequence cannot be read from.
#include "ui/file_dialog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QAction>
#include <QFileDialog>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <atomic>
#include <chrono>
#include <thread>

#include "file_answer.h"
#include "main_form_under_test.h"
#include "support/temp_folder.h"
#include "ui/main_form.h"

namespace tessarin {

using testing::AnswerModal;
using testing::ChooseFileThen;
using testing::StartMainForm;
using testing::StopMainForm;
using testing::TempFolder;

namespace {

QString Canonical(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).canonicalFilePath();
}

// Opens the next file dialog of the action and answers what it starts with, cancelling it.
struct DialogStart {
    QString folder;
    QList<QUrl> sidebar;
};

DialogStart StartOfNextDialog(QAction* action) {
    DialogStart start;
    AnswerModal<QFileDialog>([&start](QFileDialog* dialog) {
        start.folder = dialog->directory().absolutePath();
        start.sidebar = dialog->sidebarUrls();
        dialog->reject();
    });
    action->trigger();
    return start;
}

}  // namespace

class FileDialogTest : public QObject {
    Q_OBJECT

  private:
    TempFolder program_folder_;
    TempFolder data_;
    MainForm* form_ = nullptr;

    QAction* Display() const { return form_->findChild<QAction*>("View_DisplaySequenceFile"); }

  private slots:
    void init() { form_ = StartMainForm(program_folder_); }

    void cleanup() { StopMainForm(form_); }

    void neverStartsInAKernelFolderOrANonFolder_data() {
        QTest::addColumn<QString>("folder");
        // Each row catches a dialog opened where listing blocks or means nothing: the kernel's
        // trees (after a file was chosen there), a file taken for a folder, a folder gone since.
        QTest::newRow("proc") << "/proc/self";
        QTest::newRow("sys") << "/sys/kernel";
        QTest::newRow("a file") << "file.txt";
        QTest::newRow("gone") << "gone";
    }

    void neverStartsInAKernelFolderOrANonFolder() {
        QFETCH(QString, folder);
        data_.Write("file.txt", "ACGT");
        const std::string start = folder.startsWith('/') ? folder.toStdString() : data_.Path(folder.toStdString());
        form_->session().sequence().folder = start;
        const QString started = StartOfNextDialog(Display()).folder;
        QVERIFY2(IsBrowsableFolder(started), qPrintable(started));
        QVERIFY(!started.startsWith("/proc") && !started.startsWith("/sys"));
    }

    // Catches a chosen file's folder missing from the next dialog's sidebar, or the sidebar
    // offering the kernel's folders.
    void sidebarOffersTheFoldersOfChosenFiles() {
        data_.Write("a.txt", "ACGT\r\n");
        QSignalSpy finished(form_, &MainForm::CommandFinished);
        ChooseFileThen(data_.Path("a.txt"));
        Display()->trigger();
        QVERIFY(finished.wait(10000));
        RememberFolder("/proc/self");
        const DialogStart start = StartOfNextDialog(Display());
        QCOMPARE(start.folder, Canonical(data_.Path("")));
        QVERIFY(start.sidebar.contains(QUrl::fromLocalFile(Canonical(data_.Path("")))));
        QVERIFY(!start.sidebar.contains(QUrl::fromLocalFile("/proc/self")));
    }

    void aNamedPipeIsRefusedWithoutBlocking_data() {
        QTest::addColumn<QString>("action");
        // Each row catches the program hanging on a named pipe (a read that never ends) instead of
        // refusing it: in a run, and on the desktop's own thread, where the maximum word length
        // box reads the file first to propose its length.
        QTest::newRow("run") << "View_DisplaySequenceFile";
        QTest::newRow("before the run") << "Subwords_WithPositions_1";
    }

    void aNamedPipeIsRefusedWithoutBlocking() {
        QFETCH(QString, action);
        const std::string pipe = data_.Path(std::string("pipe-") + QTest::currentDataTag());
        QCOMPARE(mkfifo(pipe.c_str(), 0600), 0);
        QString message;
        ChooseFileThen(pipe, [&message] {
            AnswerModal<QMessageBox>([&message](QMessageBox* box) {
                message = box->text();
                box->accept();
            });
        });
        // Should the read block, a writer that closes at once ends it, so that the failure shows
        // instead of hanging the tests.
        std::atomic<bool> answered{false};
        std::thread unblock([&] {
            for (int wait = 0; wait < 100 && !answered; ++wait)
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            if (answered) return;
            const int writer = open(pipe.c_str(), O_WRONLY | O_NONBLOCK);
            if (writer >= 0) close(writer);
        });
        form_->findChild<QAction*>(action)->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(!message.isEmpty() || !form_->CommandRunning(), 10000);
        answered = true;
        unblock.join();
        QCOMPARE(message,
                 QString::fromStdString("Cannot read the sequence file " + pipe + ": it is not a regular file"));
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::FileDialogTest)
#include "file_dialog_test.moc"
