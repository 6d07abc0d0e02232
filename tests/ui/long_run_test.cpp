// A long analysis on the main window: its progress in the caption, and the keys that cancel it.
#include <QAction>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include "file_answer.h"
#include "main_form_under_test.h"
#include "session/random_generator.h"
#include "support/temp_folder.h"
#include "ui/main_form.h"

namespace tessarin {

using testing::ChooseFileThen;
using testing::StartMainForm;
using testing::StopMainForm;
using testing::TempFolder;

namespace {

std::string RandomDna(int length) {
    RandomGenerator random(20261123);
    std::string text(static_cast<std::size_t>(length), ' ');
    for (char& c : text)
        c = "ACGT"[random.Index(4) - 1];
    return text + "\r\n";
}

}  // namespace

class LongRunTest : public QObject {
    Q_OBJECT

  private:
    TempFolder program_folder_;
    TempFolder data_;
    MainForm* form_ = nullptr;

    // Subword Entropies on the file, until the window has handled the command's end.
    void RunEntropies(const std::string& name) {
        QSignalSpy finished(form_, &MainForm::CommandFinished);
        ChooseFileThen(data_.Path(name));
        form_->findChild<QAction*>("Calc_PartialEntropies")->trigger();
        QVERIFY(finished.wait(120000));
    }

  private slots:
    void initTestCase() {
        data_.Write("large.txt", RandomDna(10000000));
        data_.Write("medium.txt", RandomDna(200000));
    }

    void init() { form_ = StartMainForm(program_folder_); }

    void cleanup() { StopMainForm(form_); }

    // Catches a phase that never reports (the key waits until it ends) or a key that is not heard
    // while the suffixes of a long sequence are sorted. The bound is loose: speed is measured in
    // the benchmarks.
    void keyCancelsALargeRunSoonAfterTheFirstProgress() {
        QElapsedTimer since_key;
        connect(form_, &QWidget::windowTitleChanged, this, [&](const QString& caption) {
            if (since_key.isValid() || !caption.contains(": done")) return;
            since_key.start();
            QTest::keyClick(form_, Qt::Key_Space);
        });
        RunEntropies("large.txt");
        QVERIFY(since_key.isValid());
        QCOMPARE(form_->PrintedLines().last(), "User Abort");
        QVERIFY2(since_key.elapsed() < 10000, qPrintable(QString::number(since_key.elapsed()) + " ms"));
        QCOMPARE(form_->windowTitle(), MainForm::kRestCaption);
    }

    // Catches a fraction that runs backwards within a step (an estimate of the work restarted
    // part-way) or one shown as done before the step has ended.
    void progressFractionsRiseWithinEachStep() {
        QList<std::pair<QString, double>> shown;
        const QRegularExpression progress("^(.*): done ?([0-9.]*)%$");
        connect(form_, &QWidget::windowTitleChanged, this, [&](const QString& caption) {
            const QRegularExpressionMatch match = progress.match(caption);
            if (match.hasMatch()) shown.append({match.captured(1), match.captured(2).toDouble()});
        });
        RunEntropies("medium.txt");
        QVERIFY2(form_->PrintedLines().last().startsWith("Time needed ="), qPrintable(form_->PrintedLines().last()));
        QVERIFY(!shown.isEmpty());
        for (qsizetype i = 1; i < shown.size(); ++i) {
            if (shown[i].first != shown[i - 1].first) continue;
            QVERIFY2(shown[i].second >= shown[i - 1].second, qPrintable(shown[i].first));
        }
        for (const auto& [label, percent] : shown)
            QVERIFY2(percent < 100, qPrintable(label));
    }

    void modifierKeysAndAcceleratorsDoNotCancel_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("cancels");
        // Each row catches a key that a keyboard user needs on the way to Exit cancelling the run,
        // or a typed key that no longer cancels.
        QTest::newRow("Shift alone") << int(Qt::Key_Shift) << int(Qt::ShiftModifier) << false;
        QTest::newRow("Ctrl alone") << int(Qt::Key_Control) << int(Qt::ControlModifier) << false;
        QTest::newRow("Alt alone") << int(Qt::Key_Alt) << int(Qt::AltModifier) << false;
        QTest::newRow("Meta alone") << int(Qt::Key_Meta) << int(Qt::MetaModifier) << false;
        QTest::newRow("menu accelerator") << int(Qt::Key_F) << int(Qt::AltModifier) << false;
        QTest::newRow("capital letter") << int(Qt::Key_A) << int(Qt::ShiftModifier) << true;
        QTest::newRow("Escape") << int(Qt::Key_Escape) << int(Qt::NoModifier) << true;
    }

    void modifierKeysAndAcceleratorsDoNotCancel() {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QTest::keyPress(form_, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
        QTest::keyRelease(form_, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
        QTEST(form_->session().Aborted(), "cancels");
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::LongRunTest)
#include "long_run_test.moc"
