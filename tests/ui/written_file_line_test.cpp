// The main window's status line: where the last report, test sequence or image went.
#include "ui/written_file_line.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>
#include <algorithm>

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
using testing::TriggerAndWait;

class WrittenFileLineTest : public QObject {
    Q_OBJECT

  private:
    TempFolder program_folder_;
    TempFolder data_;
    MainForm* form_ = nullptr;

    WrittenFileLine* Line() const { return form_->statusBar()->findChild<WrittenFileLine*>("Written_Lbl"); }

    static bool WindowShown(const QString& title) {
        return std::ranges::any_of(QApplication::topLevelWidgets(), [&title](QWidget* window) {
            return window->isVisible() && window->windowTitle() == title;
        });
    }

  private slots:
    void init() { form_ = StartMainForm(program_folder_); }

    void cleanup() { StopMainForm(form_); }

    // Catches a test sequence written in silence, or a click on its name that opens nothing.
    void testSequenceIsNamedAndOpensOnClick() {
        QCOMPARE(Line()->text(), "");
        QVERIFY(TriggerAndWait(form_, "Edit_CreateTestSequence"));
        const QString path = QString::fromStdString(program_folder_.Path("test.txt"));
        QCOMPARE(Line()->text(), "Test sequence: " + path);
        QVERIFY(!WindowShown(path));
        QTest::mouseClick(Line(), Qt::LeftButton);
        QVERIFY(WindowShown(path));
    }

    // Catches the report of a run not named, or the caption (the progress line) used instead.
    void reportOfARunIsNamed() {
        data_.Write("st.txt", "ACGTACGTTTGACGTAACG\r\n");
        ChooseFileThen(data_.Path("st.txt"));
        QVERIFY(TriggerAndWait(form_, "Calc_PartialEntropies"));
        QCOMPARE(Line()->text(), "Report: " + QString::fromStdString(data_.Path("st.log")));
        QCOMPARE(form_->windowTitle(), MainForm::kRestCaption);
    }

    // Catches a saved image not named.
    void savedImageIsNamed() {
        ChooseFileThen(data_.Path("shot.bmp"));
        form_->findChild<QAction*>("File_SaveImageAs")->trigger();
        QCOMPARE(Line()->text(), "Image: " + QString::fromStdString(data_.Path("shot.bmp")));
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::WrittenFileLineTest)
#include "written_file_line_test.moc"
