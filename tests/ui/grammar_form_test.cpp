#include "ui/grammar_form.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "modal_answer.h"

namespace tessarin {

using testing::AnswerModal;

class GrammarFormTest : public QObject {
    Q_OBJECT

  private:
    // Opens Settings, clicks the named buttons in order, and answers with `closing_button`.
    static bool RunSettings(int& method, int& options, QStringList clicks, const QString& closing_button) {
        Grammar_Form form;
        AnswerModal<Grammar_Form>([clicks, closing_button](Grammar_Form* shown) {
            for (const QString& name : clicks)
                shown->findChild<QRadioButton*>(name)->click();
            shown->findChild<QPushButton*>(closing_button)->click();
        });
        return form.Settings(method, options);
    }

  private slots:
    void controlsAndCaptions_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("caption");
        // Each row catches a control that tests and callers could not find by its name, or a wrong caption.
        QTest::newRow("method frame") << "Method_Frm"
                                      << "Method";
        QTest::newRow("method 3") << "Method_Obt_3"
                                  << "Maximum Gain per Step";
        QTest::newRow("method 2") << "Method_Obt_2"
                                  << "Longest Words First";
        QTest::newRow("method 1") << "Method_Obt_1"
                                  << "Shortest Words First";
        QTest::newRow("method 0") << "Method_Obt_0"
                                  << "NVOGRAM";
        QTest::newRow("scope frame") << "Analyze_Frm"
                                     << "Analyze";
        QTest::newRow("scope 0") << "Analyze_Obt_0"
                                 << "Only the Selected Sequence File";
        QTest::newRow("scope 1") << "Analyze_Obt_1"
                                 << "All Files in Folder with Same Extension as the Selected One";
        QTest::newRow("ok") << "OK_Cbt"
                            << "OK";
        QTest::newRow("cancel") << "Cancel_Cbt"
                                << "&Cancel";
    }

    void controlsAndCaptions() {
        QFETCH(QString, name);
        QFETCH(QString, caption);
        Grammar_Form form;
        QWidget* control = form.findChild<QWidget*>(name);
        QVERIFY2(control != nullptr, qPrintable(name));
        if (auto* frame = qobject_cast<QGroupBox*>(control)) {
            QCOMPARE(frame->title(), caption);
        } else {
            QCOMPARE(qobject_cast<QAbstractButton*>(control)->text(), caption);
        }
    }

    void nameAndCaption() {
        Grammar_Form form;
        QCOMPARE(form.FormName(), "GrammarForm");
        QCOMPARE(form.windowTitle(), "Grammar Options");
    }

    void okHandsBackTheChoice_data() {
        QTest::addColumn<int>("method");
        QTest::addColumn<int>("options");
        QTest::addColumn<QStringList>("clicks");
        QTest::addColumn<int>("expected_method");
        QTest::addColumn<int>("expected_options");
        // Catches a method index taken from the button's position instead of its index.
        QTest::newRow("maximum gain, one file") << 0 << 0 << QStringList{"Method_Obt_3"} << 3 << 1;
        // Catches the scope button not setting bit 2.
        QTest::newRow("folder") << 1 << 0 << QStringList{"Analyze_Obt_1"} << 1 << 3;
        // Catches the scope button not clearing bit 2, or other option bits lost.
        QTest::newRow("back to one file") << 2 << (2 | 8) << QStringList{"Analyze_Obt_0"} << 2 << (1 | 8);
        // Catches a stale bit 1 confirming a form, and the preset method not kept when nothing is clicked.
        QTest::newRow("nothing clicked") << 2 << (1 | 2) << QStringList{} << 2 << 3;
        QTest::newRow("last click wins") << 0 << 0 << QStringList{"Method_Obt_2", "Method_Obt_1"} << 1 << 1;
    }

    void okHandsBackTheChoice() {
        QFETCH(int, method);
        QFETCH(int, options);
        QFETCH(QStringList, clicks);
        QVERIFY(RunSettings(method, options, clicks, "OK_Cbt"));
        QTEST(method, "expected_method");
        QTEST(options, "expected_options");
    }

    // Catches Cancel writing back the clicks made before it.
    void cancelChangesNothing() {
        int method = 2;
        int options = 2;
        QVERIFY(!RunSettings(method, options, {"Method_Obt_0", "Analyze_Obt_0"}, "Cancel_Cbt"));
        QCOMPARE(method, 2);
        QCOMPARE(options, 2);
    }

    // Catches the buttons not loaded from the arguments before the form shows.
    void formShowsTheGivenSettings() {
        Grammar_Form form;
        int method = 1;
        int options = 2;
        bool method_shown = false;
        bool scope_shown = false;
        AnswerModal<Grammar_Form>([&](Grammar_Form* shown) {
            method_shown = shown->findChild<QRadioButton*>("Method_Obt_1")->isChecked();
            scope_shown = shown->findChild<QRadioButton*>("Analyze_Obt_1")->isChecked();
            shown->reject();
        });
        form.Settings(method, options);
        QVERIFY(method_shown);
        QVERIFY(scope_shown);
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::GrammarFormTest)
#include "grammar_form_test.moc"
