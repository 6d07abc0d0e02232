#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include "support/temp_folder.h"
#include "ui/main_form.h"

namespace tessarin {

// The main window's menu: every control by its name, with its caption and state.
class MainMenuTest : public QObject {
    Q_OBJECT

  private:
    testing::TempFolder program_folder_;
    MainForm* form_ = nullptr;

    QAction* Action(const QString& name) const { return form_->findChild<QAction*>(name); }

  private slots:
    void init() { form_ = new MainForm(program_folder_.Folder()); }
    void cleanup() { delete form_; }

    void caption() { QCOMPARE(form_->windowTitle(), "TESSARIN: Grammatical Complexity Analysis for Windows"); }

    void menusInOrder() {
        QStringList titles;
        for (QAction* action : form_->menuBar()->actions())
            titles << action->menu()->objectName() + "=" + action->text();
        // Catches a missing, renamed or misplaced menu.
        QCOMPARE(titles, (QStringList{"Menu_File=&File", "Menu_Edit=&Edit", "Menu_View=&View", "Menu_Calc=&Calc",
                                      "Menu_Help=&Help"}));
    }

    void items_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("caption");
        // Each row catches an item the program (and its tests) cannot find by name, or a changed caption.
        const char* rows[][2] = {
            {"View_DisplaySequenceFile", "&Display Sequence File"},
            {"File_SaveImageAs", "&Save Image As"},
            {"File_Print", "&Print"},
            {"File_Exit", "E&xit"},
            {"Edit_Copy", "&Copy"},
            {"Edit_Fractionate", "&Fractionate Sequence"},
            {"Edit_ChangeAlphabet", "Change &Alphabet"},
            {"Edit_RemoveFileContext", "&Remove File Context"},
            {"Edit_GenerateSequence", "&Generate a Sequence"},
            {"Edit_DiscretizeTimeSeries", "&Discretize a Time Series"},
            {"Edit_CreateTestSequence", "Create Test Sequence"},
            {"File_MakeSurrogateFiles", "&Make Surrogate Files"},
            {"View_CloseallTextWindows", "Close All &Text Windows"},
            {"View_CloseallPlotWindows", "Close All &Plot Windows"},
            {"Subwords_WithPositions_0", "With &Positions"},
            {"Subwords_WithPositions_1", "&Without Positions"},
            {"Exceptional_WithPositions_0", "With &Positions"},
            {"Exceptional_WithPositions_1", "&Without Positions"},
            {"Calc_PartialEntropies", "Subword &Entropies"},
            {"Calc_ConditionalEntropies", "&Local Conditional Uncertainties"},
            {"Calc_GrammarComplexity", "&Grammatical Complexity"},
            {"Calc_AlgorithmicDistance", "&Algorithmic Distance"},
            {"Calc_BuildTree", "Distance Matrix / &Tree"},
            {"Calc_SurrogateStatistics", "&Surrogate Statistics"},
            {"Help_About", "&About"},
            {"Help_Literature", "&References"},
            {"Help_UsingTessarin", "&Using Tessarin"},
        };
        for (const auto& row : rows)
            QTest::newRow(row[0]) << row[0] << row[1];
    }

    void items() {
        QFETCH(QString, name);
        QFETCH(QString, caption);
        QAction* action = Action(name);
        QVERIFY2(action != nullptr, qPrintable(name));
        QCOMPARE(action->text(), caption);
    }

    void submenus_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("pair");
        QTest::newRow("repeating") << "Calc_FindRepeatedWords"
                                   << "&Repeating Subwords"
                                   << "Subwords_WithPositions";
        QTest::newRow("exceptional") << "Calc_ExceptionalSubwords"
                                     << "E&xceptional Subwords"
                                     << "Exceptional_WithPositions";
    }

    // Catches the pair's index (the positions flag) swapped or missing, or the pair in the wrong submenu.
    void submenus() {
        QFETCH(QString, name);
        QFETCH(QString, caption);
        QFETCH(QString, pair);
        auto* submenu = form_->findChild<QMenu*>(name);
        QVERIFY(submenu != nullptr);
        QCOMPARE(submenu->title(), caption);
        QCOMPARE(submenu->actions().size(), 2);
        for (int index = 0; index < 2; ++index) {
            QAction* action = submenu->actions().at(index);
            QCOMPARE(action->objectName(), pair + "_" + QString::number(index));
            QCOMPARE(action->data().toInt(), index);
        }
    }

    void separators_data() {
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QStringList>("separators");
        QTest::newRow("file") << "Menu_File" << QStringList{"File_line", "File_Line0", "File_line1"};
        QTest::newRow("edit") << "Menu_Edit" << QStringList{"Edit_Line0", "Edit_Line1", "Edit_Line2"};
        QTest::newRow("calc") << "Menu_Calc" << QStringList{"Calc_line2", "Calc_line3", "Calc_line4", "Calc_Line1"};
    }

    // Catches a separator missing, unnamed, or in another menu.
    void separators() {
        QFETCH(QString, menu);
        QFETCH(QStringList, separators);
        QStringList found;
        for (QAction* action : form_->findChild<QMenu*>(menu)->actions()) {
            if (action->isSeparator()) found << action->objectName();
        }
        QCOMPARE(found, separators);
    }

    void comingAnalysesDisabled_data() {
        QTest::addColumn<QString>("name");
        // Each row catches an item offered although its analysis is not in the program.
        for (const char* name : {"Edit_Fractionate", "Edit_ChangeAlphabet", "Edit_RemoveFileContext",
                                 "Edit_GenerateSequence", "Edit_DiscretizeTimeSeries", "File_MakeSurrogateFiles",
                                 "Calc_AlgorithmicDistance", "Calc_BuildTree", "Calc_SurrogateStatistics"})
            QTest::newRow(name) << name;
    }

    void comingAnalysesDisabled() {
        QFETCH(QString, name);
        QVERIFY(!Action(name)->isEnabled());
    }

    void workingItemsEnabled_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"View_DisplaySequenceFile", "File_SaveImageAs", "File_Print", "File_Exit", "Edit_Copy",
                                 "Edit_CreateTestSequence", "View_CloseallTextWindows", "View_CloseallPlotWindows",
                                 "Subwords_WithPositions_0", "Subwords_WithPositions_1", "Exceptional_WithPositions_0",
                                 "Exceptional_WithPositions_1", "Calc_PartialEntropies", "Calc_ConditionalEntropies",
                                 "Calc_GrammarComplexity", "Help_About", "Help_Literature", "Help_UsingTessarin"})
            QTest::newRow(name) << name;
    }

    // Catches a working command left greyed out.
    void workingItemsEnabled() {
        QFETCH(QString, name);
        QVERIFY(Action(name)->isEnabled());
    }

    // Catches the image box shown on the window or missing for Save Image As.
    void auxPictureBoxHidden() {
        auto* aux = form_->findChild<QWidget*>("Aux_Pbx");
        QVERIFY(aux != nullptr);
        QVERIFY(aux->isHidden());
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::MainMenuTest)
#include "main_menu_test.moc"
