#include "ui/surrogate_form.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "control_text.h"
#include "modal_answer.h"
#include "surrogate/surrogate_options.h"

namespace tessarin {

using testing::AnswerModal;

namespace {

// "Name" clicks a button or check box; "Name=text" types text into a box.
void Act(QWidget* form, const QString& action) {
    const QStringList parts = action.split('=');
    if (parts.size() == 2) {
        form->findChild<QLineEdit*>(parts[0])->setText(parts[1]);
    } else {
        form->findChild<QAbstractButton*>(action)->click();
    }
}

constexpr int kEnsemble = kEntropyEnabled | kExceptionalEnabled;

}  // namespace

class SurrogateFormTest : public QObject {
    Q_OBJECT

  private slots:
    void controlsAndCaptions_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("caption");
        // Each row catches a control that callers and tests could not find by its name, or a wrong caption.
        const char* rows[][2] = {
            {"Label1", "Surrogate Count:"},
            {"Number_Tbx", " 100"},
            {"Preserve_Frm", "Preserve"},
            {"Preserve_Obt_0", "&Only Symbols"},
            {"Preserve_Obt_1", "&Pairs and Symbols"},
            {"Preserve_Obt_2", "&Triples, Pairs, Symbols"},
            {"AllVertices_Chk", "Shuffle &All Vertices"},
            {"Entropy_Chk", "Add &Entropy Values"},
            {"Exotic_Chk", "Add Exceptional &Words"},
            {"MaxLen_Lbl", "Max Word Length"},
            {"MaxLen_Tbx", ""},
            {"OK_Cbt", "OK"},
            {"Cancel_Cbt", "&Cancel"},
        };
        for (const auto& row : rows)
            QTest::newRow(row[0]) << row[0] << row[1];
    }

    void controlsAndCaptions() {
        QFETCH(QString, name);
        QFETCH(QString, caption);
        Surrogate_Form form;
        QCOMPARE(form.FormName(), "SurrogateForm");
        QCOMPARE(form.windowTitle(), "Generate Surrogates");
        QCOMPARE(testing::ControlText(form, name), caption);
    }

    void settings_data() {
        QTest::addColumn<int>("options");
        QTest::addColumn<QStringList>("actions");
        QTest::addColumn<QString>("closing_button");
        QTest::addColumn<QString>("shown_max_length");  // the box just before closing
        QTest::addColumn<int>("expected_count");        // 25 when not typed: the count is loaded, not the default
        QTest::addColumn<int>("expected_options");
        QTest::addColumn<int>("expected_max_length");
        // Catches a wrong default length for the triples level, or bit 4 not set by the click.
        QTest::newRow("triples entropy") << (kEnsemble | kPreserveTriples) << QStringList{"Entropy_Chk"} << "OK_Cbt"
                                         << " 5" << 25 << (kEnsemble | kPreserveTriples | kAddEntropy | 1) << 5;
        // Catches the count truncated instead of rounded half to even.
        QTest::newRow("count 2.5") << kEnsemble << QStringList{"Number_Tbx=2.5"} << "OK_Cbt"
                                   << "" << 2 << (kEnsemble | 1) << 0;
        // Catches a level switch that overwrites the length already filled in, or bits 2 and 16 not swapped.
        QTest::newRow("switch keeps length")
            << (kEnsemble | kPreservePairs) << QStringList{"Exotic_Chk", "Preserve_Obt_2"} << "OK_Cbt"
            << " 4" << 25 << (kEnsemble | kPreserveTriples | kAddExceptionalWords | 1) << 4;
        // Catches a typed length replaced by the default while the box stays enabled.
        QTest::newRow("typed length kept")
            << kEnsemble << QStringList{"Entropy_Chk", "MaxLen_Tbx=7", "Exotic_Chk"} << "OK_Cbt"
            << "7" << 25 << (kEnsemble | kAddEntropy | kAddExceptionalWords | 1) << 7;
        // Catches a box left filled (and returned) once neither comparison is wanted.
        QTest::newRow("both unchecked") << (kEnsemble | kAddEntropy) << QStringList{"Entropy_Chk"} << "OK_Cbt"
                                        << "" << 25 << (kEnsemble | 1) << 0;
        // Catches the uniform shuffle's check box not setting its bit.
        QTest::newRow("all vertices") << 0 << QStringList{"AllVertices_Chk", "Preserve_Obt_1"} << "OK_Cbt"
                                      << "" << 25 << (kShuffleAllVertices | kPreservePairs | 1) << 0;
        // Catches the files run's check boxes left enabled (a click on a disabled box does nothing).
        QTest::newRow("files run") << (kPreserveTriples | kPreservePairs) << QStringList{"Entropy_Chk", "Exotic_Chk"}
                                   << "OK_Cbt"
                                   << "" << 25 << (kPreserveTriples | kPreservePairs | 1) << 0;
        // Catches Cancel writing back what was changed before it.
        QTest::newRow("cancel") << kEnsemble << QStringList{"Entropy_Chk", "Number_Tbx=5"} << "Cancel_Cbt"
                                << " 3" << 25 << kEnsemble << 0;
    }

    void settings() {
        QFETCH(int, options);
        QFETCH(QStringList, actions);
        QFETCH(QString, closing_button);
        QFETCH(QString, shown_max_length);
        QString shown;
        AnswerModal<Surrogate_Form>([&](Surrogate_Form* form) {
            for (const QString& action : actions)
                Act(form, action);
            shown = form->findChild<QLineEdit*>("MaxLen_Tbx")->text();
            form->findChild<QPushButton*>(closing_button)->click();
        });
        Surrogate_Form form;
        int count = 25;
        int max_length = 0;
        QCOMPARE(form.Settings(count, options, max_length), closing_button == "OK_Cbt");
        QCOMPARE(shown, shown_max_length);
        QTEST(count, "expected_count");
        QTEST(options, "expected_options");
        QTEST(max_length, "expected_max_length");
    }

    // Catches a count below 1 accepted, or the form closed by the refusal.
    void countBelowOneIsRefused() {
        for (const char* typed : {" 0", "abc"}) {
            QString message;
            bool still_open = false;
            AnswerModal<Surrogate_Form>([&](Surrogate_Form* form) {
                form->findChild<QLineEdit*>("Number_Tbx")->setText(typed);
                AnswerModal<QMessageBox>([&](QMessageBox* box) {
                    message = box->text();
                    box->accept();
                });
                form->findChild<QPushButton*>("OK_Cbt")->click();
                still_open = form->isVisible();
                form->findChild<QPushButton*>("Cancel_Cbt")->click();
            });
            Surrogate_Form form;
            int count = 100;
            int options = 0;
            int max_length = 0;
            QVERIFY(!form.Settings(count, options, max_length));
            QCOMPARE(message, "Surrogate Count < 1");
            QVERIFY(still_open);
        }
    }

    // Catches a form that opens with the focus elsewhere than on the level that stands.
    void focusOnTheCheckedLevel() {
        QString focused;
        AnswerModal<Surrogate_Form>([&focused](Surrogate_Form* form) {
            focused = form->focusWidget() != nullptr ? form->focusWidget()->objectName() : "";
            form->reject();
        });
        Surrogate_Form form;
        int count = 100;
        int options = kPreserveTriples;
        int max_length = 0;
        QVERIFY(!form.Settings(count, options, max_length));
        QCOMPARE(focused, "Preserve_Obt_2");
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::SurrogateFormTest)
#include "surrogate_form_test.moc"
