#include "ui/generate_form.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "modal_answer.h"

namespace tessarin {

using testing::AnswerModal;

class GenerateFormTest : public QObject {
    Q_OBJECT

    // Shows the form on `params`, lets `act` work on it, then closes it with `closing_button`.
    // Answers whether Settings answered true; the texts of any refusals shown land in `messages`.
    static bool Show(GenerateParams& params, const std::function<void(Generate_Form*)>& act,
                     const QString& closing_button, QStringList* messages = nullptr) {
        AnswerModal<Generate_Form>([&](Generate_Form* form) {
            act(form);
            if (messages != nullptr) {
                AnswerModal<QMessageBox>([messages](QMessageBox* box) {
                    messages->append(box->text());
                    box->accept();
                });
            }
            form->findChild<QPushButton*>(closing_button)->click();
            if (form->isVisible()) form->findChild<QPushButton*>("Cancel_Cbt")->click();
        });
        Generate_Form form;
        return form.Settings(params);
    }

  private slots:
    // Catches a caption or a control name that callers and tests could not find.
    void captions() {
        Generate_Form form;
        QCOMPARE(form.FormName(), "GenerateForm");
        const QStringList sources{"White Noise", "Exponential Noise", "Gaussian Noise", "Logistic Map",
                                  "Henon:  X",   "Lorenz:  X",        "Sine Wave",      "Bernoulli"};
        const QStringList partitions{"Equal Frequency", "Equal Intervals", "Multiples of R.M.S."};
        for (int i = 0; i < sources.size(); ++i)
            QCOMPARE(form.findChild<QRadioButton*>(QString("Source_Obt_%1").arg(i))->text(), sources[i]);
        for (int i = 0; i < partitions.size(); ++i)
            QCOMPARE(form.findChild<QRadioButton*>(QString("Partition_Obt_%1").arg(i))->text(), partitions[i]);
        for (const char* name : {"Format_Obt_2", "Coordinate_Obt_2", "OK_Cbt", "Cancel_Cbt"})
            QVERIFY2(form.findChild<QAbstractButton*>(name) != nullptr, name);
    }

    // Catches defaults shown otherwise than the boxes start, and the wrong buttons checked.
    void defaults() {
        GenerateParams params;
        QStringList texts;
        bool partition_checked = false;
        Show(
            params,
            [&](Generate_Form* form) {
                for (const char* name :
                     {"Length_Tbx", "Alphabet_Tbx", "R_Tbx", "Period_Tbx", "BernoulliN_Tbx", "BernoulliP_Tbx"})
                    texts << form->findChild<QLineEdit*>(name)->text();
                partition_checked = form->findChild<QRadioButton*>("Partition_Obt_0")->isChecked();
            },
            "Cancel_Cbt");
        QCOMPARE(texts, (QStringList{" 1000", " 4", " 4", " 256", " 10", " 0.5"}));
        QVERIFY(partition_checked);
    }

    void refusals_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        // Each row catches a limit not checked on OK, checked with the wrong comparison, or a
        // form that closes on a refusal.
        QTest::newRow("length") << "Length_Tbx"
                                << "1"
                                << "Sequence Length < 2";
        QTest::newRow("alphabet low") << "Alphabet_Tbx"
                                      << "1"
                                      << "Alphabet Size < 2";
        QTest::newRow("alphabet high") << "Alphabet_Tbx"
                                       << "224"
                                       << "Alphabet Size > 223";
        QTest::newRow("R zero") << "R_Tbx"
                                << "0"
                                << "Logistic R <= 0";
        QTest::newRow("R high") << "R_Tbx"
                                << "4.5"
                                << "Logistic R > 4";
        QTest::newRow("n") << "BernoulliN_Tbx"
                           << "-1"
                           << "Bernoulli n < 0";
        QTest::newRow("p zero") << "BernoulliP_Tbx"
                                << "x"
                                << "Bernoulli p <= 0";
        QTest::newRow("p one") << "BernoulliP_Tbx"
                               << "1"
                               << "Bernoulli p >= 1";
    }

    void refusals() {
        QFETCH(QString, box);
        QFETCH(QString, text);
        GenerateParams params;
        QStringList messages;
        const bool confirmed = Show(
            params, [&](Generate_Form* form) { form->findChild<QLineEdit*>(box)->setText(text); }, "OK_Cbt", &messages);
        QVERIFY(!confirmed);
        QTEST(messages.value(0), "message");
        QCOMPARE(params.length, 1000);
    }

    // Catches values not written back, a coordinate offered where the source has none, and a
    // coordinate kept from another source.
    void settingsAndCoordinates() {
        GenerateParams params;
        bool henon_z = true, white_frame = true;
        const bool confirmed = Show(
            params,
            [&](Generate_Form* form) {
                form->findChild<QRadioButton*>("Source_Obt_4")->click();
                henon_z = form->findChild<QRadioButton*>("Coordinate_Obt_2")->isEnabled();
                form->findChild<QRadioButton*>("Source_Obt_0")->click();
                white_frame = form->findChild<QGroupBox*>("Coordinate_Frm")->isEnabled();
                form->findChild<QRadioButton*>("Source_Obt_5")->click();
                form->findChild<QRadioButton*>("Coordinate_Obt_2")->click();
                form->findChild<QRadioButton*>("Format_Obt_0")->click();
                form->findChild<QRadioButton*>("Partition_Obt_2")->click();
                form->findChild<QLineEdit*>("Length_Tbx")->setText("2.5e3");
                form->findChild<QLineEdit*>("BernoulliP_Tbx")->setText(" .25");
            },
            "OK_Cbt");
        QVERIFY(confirmed);
        QVERIFY(!henon_z);
        QVERIFY(!white_frame);
        QCOMPARE(params.source, SignalSource::kLorenzSystem);
        QCOMPARE(params.coordinate, 2);
        QCOMPARE(params.format, OutputFormat::kNumbers);
        QCOMPARE(params.partition, Partition::kMultiplesOfRms);
        QCOMPARE(params.length, 2500);
        QCOMPARE(params.bernoulli_p, 0.25F);
    }

    // Catches source controls left enabled for a series read from a file, or its length replaced.
    void seriesFileDisablesTheSource() {
        GenerateParams params;
        params.mode = GenerateMode::kDiscretiseFile;
        params.length = 37;
        bool source_enabled = true, length_enabled = true, alphabet_enabled = false;
        QVERIFY(Show(
            params,
            [&](Generate_Form* form) {
                source_enabled = form->findChild<QGroupBox*>("Source_Frm")->isEnabled();
                length_enabled = form->findChild<QLineEdit*>("Length_Tbx")->isEnabled();
                alphabet_enabled = form->findChild<QLineEdit*>("Alphabet_Tbx")->isEnabled();
            },
            "OK_Cbt"));
        QVERIFY(!source_enabled);
        QVERIFY(!length_enabled);
        QVERIFY(alphabet_enabled);
        QCOMPARE(params.length, 37);
    }

    // Catches a form that opens with the focus elsewhere than on the output format that stands.
    void focusOnTheCheckedFormat() {
        QString focused;
        GenerateParams params;
        params.format = OutputFormat::kNumbers;
        QVERIFY(!Show(
            params,
            [&focused](Generate_Form* form) {
                focused = form->focusWidget() != nullptr ? form->focusWidget()->objectName() : "";
            },
            "Cancel_Cbt"));
        QCOMPARE(focused, "Format_Obt_0");
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::GenerateFormTest)
#include "generate_form_test.moc"
