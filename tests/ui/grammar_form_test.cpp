#include "ui/grammar_form.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "control_text.h"
#include "modal_answer.h"

namespace tessarin {

using testing::AnswerModal;

class GrammarFormTest : public QObject {
    Q_OBJECT

  private slots:
    void controlsAndCaptions_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("caption");
        // Each row catches a control that tests and callers could not find by its name, or a wrong caption.
        const char* rows[][2] = {
            {"Method_Frm", "Method"},
            {"Method_Obt_3", "Maximum Gain per Step"},
            {"Method_Obt_2", "Longest Words First"},
            {"Method_Obt_1", "Shortest Words First"},
            {"Method_Obt_0", "NVOGRAM"},
            {"Analyze_Frm", "Analyze"},
            {"Analyze_Obt_0", "Only the Selected Sequence File"},
            {"Analyze_Obt_1", "All Files in Folder with Same Extension as the Selected One"},
            {"OK_Cbt", "OK"},
            {"Cancel_Cbt", "&Cancel"},
        };
        for (const auto& row : rows)
            QTest::newRow(row[0]) << row[0] << row[1];
    }

    void controlsAndCaptions() {
        QFETCH(QString, name);
        QFETCH(QString, caption);
        Grammar_Form form;
        QCOMPARE(form.FormName(), "GrammarForm");
        QCOMPARE(form.windowTitle(), "Grammar Options");
        QCOMPARE(testing::ControlText(form, name), caption);
    }

    void settings_data() {
        QTest::addColumn<int>("method");
        QTest::addColumn<int>("options");
        QTest::addColumn<QStringList>("clicks");
        QTest::addColumn<QString>("closing_button");
        QTest::addColumn<int>("expected_method");
        QTest::addColumn<int>("expected_options");
        // Catches a method index taken from the button's position instead of its index.
        QTest::newRow("maximum gain, one file") << 0 << 0 << QStringList{"Method_Obt_3"} << "OK_Cbt" << 3 << 1;
        // Catches the scope button not setting bit 2.
        QTest::newRow("folder") << 1 << 0 << QStringList{"Analyze_Obt_1"} << "OK_Cbt" << 1 << 3;
        // Catches the scope button not clearing bit 2, or other option bits lost.
        QTest::newRow("back to one file") << 2 << (2 | 8) << QStringList{"Analyze_Obt_0"} << "OK_Cbt" << 2 << (1 | 8);
        // Catches a stale bit 1 confirming a form, and the preset method not kept when nothing is clicked.
        QTest::newRow("nothing clicked") << 2 << (1 | 2) << QStringList{} << "OK_Cbt" << 2 << 3;
        // Catches Cancel writing back the clicks made before it.
        QTest::newRow("cancel") << 2 << 2 << QStringList{"Method_Obt_0", "Analyze_Obt_0"} << "Cancel_Cbt" << 2 << 2;
    }

    // Also catches buttons not loaded from the arguments before the form shows.
    void settings() {
        QFETCH(int, method);
        QFETCH(int, options);
        QFETCH(QStringList, clicks);
        QFETCH(QString, closing_button);
        const QString shown_method = QString("Method_Obt_%1").arg(method);
        const QString shown_scope = QString("Analyze_Obt_%1").arg((options & 2) != 0 ? 1 : 0);
        bool preset_shown = false;
        AnswerModal<Grammar_Form>([&](Grammar_Form* shown) {
            preset_shown = shown->findChild<QRadioButton*>(shown_method)->isChecked() &&
                           shown->findChild<QRadioButton*>(shown_scope)->isChecked();
            for (const QString& name : clicks)
                shown->findChild<QRadioButton*>(name)->click();
            shown->findChild<QPushButton*>(closing_button)->click();
        });
        Grammar_Form form;
        QCOMPARE(form.Settings(method, options), closing_button == "OK_Cbt");
        QVERIFY(preset_shown);
        QTEST(method, "expected_method");
        QTEST(options, "expected_options");
    }

    // Catches a form that opens with the focus elsewhere, so that the arrow keys do not move the
    // method that stands.
    void focusOnTheCheckedMethod() {
        QString focused;
        AnswerModal<Grammar_Form>([&focused](Grammar_Form* form) {
            focused = form->focusWidget() != nullptr ? form->focusWidget()->objectName() : "";
            form->reject();
        });
        Grammar_Form form;
        int method = 2;
        int options = 0;
        QVERIFY(!form.Settings(method, options));
        QCOMPARE(focused, "Method_Obt_2");
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::GrammarFormTest)
#include "grammar_form_test.moc"
