#include "ui/window_placement.h"

#include <QApplication>
#include <QMenuBar>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include "file_answer.h"
#include "support/temp_folder.h"
#include "ui/main_form.h"

namespace tessarin {

using testing::ChooseFileThen;
using testing::TempFolder;

// Where new text windows go on small and scaled screens, without a window system.
class WindowPlacementTest : public QObject {
    Q_OBJECT

  private slots:
    void staysOnScreenAndOffTheMenu_data() {
        QTest::addColumn<QRect>("available");
        QTest::addColumn<QRect>("main_frame");
        QTest::addColumn<QSize>("wanted");
        QTest::addColumn<QSize>("minimum");
        // A panel above, 24 pixels: the available geometry does not start at 0.
        const QRect small(0, 24, 1024, 744);
        // Each row catches windows leaving the screen or covering the main window's menu in one
        // layout: no room beside the main window, room beside it, a main window pushed to the
        // bottom, a screen of 1600x1000 at scale 2, and windows whose minimum exceeds half the screen.
        QTest::newRow("1024x768, main centred") << small << QRect(150, 100, 728, 576) << QSize(720, 480) << QSize();
        QTest::newRow("1024x768, main at left") << small << QRect(0, 24, 500, 400) << QSize(720, 480) << QSize();
        QTest::newRow("main at the bottom") << small << QRect(0, 600, 728, 168) << QSize(720, 480) << QSize();
        QTest::newRow("scale 2") << QRect(0, 0, 800, 484) << QRect(0, 0, 800, 484) << QSize(720, 480) << QSize();
        QTest::newRow("large minimum") << QRect(0, 0, 800, 484) << QRect(0, 0, 800, 484) << QSize(640, 480)
                                       << QSize(480, 360);
    }

    void staysOnScreenAndOffTheMenu() {
        QFETCH(QRect, available);
        QFETCH(QRect, main_frame);
        QFETCH(QSize, wanted);
        QFETCH(QSize, minimum);
        const QMargins frame(1, 30, 1, 1);
        const int menu_bottom = main_frame.top() + 30 + 25;
        const CascadeRoom room{available, main_frame, menu_bottom, frame};
        const QRect menu_band(main_frame.left(), main_frame.top(), main_frame.width(),
                              menu_bottom - main_frame.top() + 1);
        for (int index = 0; index < 10; ++index) {
            const QRect rect = CascadeRect(room, wanted, minimum, index);
            QVERIFY2(available.contains(rect), qPrintable(QString("window %1 leaves the screen").arg(index)));
            if (minimum.isEmpty()) {
                QVERIFY(rect.width() <= available.width() / 2);
                QVERIFY(rect.height() <= available.height() * 2 / 3);
            } else {
                QVERIFY(rect.width() >= minimum.width() + frame.left() + frame.right());
            }
            // With room below the menu, no window covers it.
            if (available.bottom() - menu_bottom > available.height() / 3) {
                QVERIFY2(!rect.intersects(menu_band), qPrintable(QString("window %1 covers the menu").arg(index)));
            }
        }
    }

    // Catches windows laid exactly on one another, or a cascade that wanders on instead of
    // starting over at the first place.
    void cascadeStartsOverWhereTheScreenEnds() {
        const CascadeRoom room{QRect(0, 0, 1024, 768), QRect(0, 0, 500, 400), 55, QMargins(1, 30, 1, 1)};
        const QRect first = CascadeRect(room, QSize(720, 480), QSize(), 0);
        int index = 1;
        while (CascadeRect(room, QSize(720, 480), QSize(), index) != first) {
            QVERIFY(index < 100);
            ++index;
        }
        QVERIFY(index > 2);
    }

    // On the simulated screen: catches a main window larger than the screen (as at a scale factor
    // of 2) and report windows that pile up off screen or over the main window's menu.
    void tenCommandsKeepEveryWindowOnScreen() {
        TempFolder program_folder;
        TempFolder data;
        data.Write("seq.txt", "ACGTACGTTTGACGTAACG\r\n");
        MainForm form(program_folder.Folder());
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        const QRect available = form.screen()->availableGeometry();
        for (int command = 0; command < 10; ++command) {
            QSignalSpy finished(&form, &MainForm::CommandFinished);
            ChooseFileThen(data.Path("seq.txt"));
            form.findChild<QAction*>("View_DisplaySequenceFile")->trigger();
            QVERIFY(finished.wait(10000));
        }
        QVERIFY2(available.contains(form.frameGeometry()), "the main window leaves the screen");
        const QRect menu(form.menuBar()->mapToGlobal(QPoint(0, 0)), form.menuBar()->size());
        int windows = 0;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window == &form || !window->isVisible()) continue;
            ++windows;
            QVERIFY2(available.contains(window->frameGeometry()), qPrintable(window->windowTitle()));
            QVERIFY2(!window->frameGeometry().intersects(menu), qPrintable(window->windowTitle()));
            window->close();
        }
        QCOMPARE(windows, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

}  // namespace tessarin

// The offscreen platform with a screen of the size TESSARIN_TEST_SCREEN gives ("1024x768" unless
// set), so that one test program checks small and scaled screens alike.
int main(int argc, char** argv) {
    const QByteArray size =
        qEnvironmentVariableIsSet("TESSARIN_TEST_SCREEN") ? qgetenv("TESSARIN_TEST_SCREEN") : QByteArray("1024x768");
    const QList<QByteArray> sides = size.split('x');
    tessarin::testing::TempFolder config;
    config.Write("screen.json",
                 R"({"windowFrameMargins": true, "screens": [{"name": "test", "x": 0, "y": 0, "width": )" +
                     sides.value(0).toStdString() + R"(, "height": )" + sides.value(1).toStdString() +
                     R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    qputenv("QT_QPA_PLATFORM", QByteArray("offscreen:configfile=") + config.Path("screen.json").c_str());
    QApplication application(argc, argv);
    tessarin::WindowPlacementTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "window_placement_test.moc"
