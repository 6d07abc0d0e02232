#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <algorithm>

#include "support/temp_folder.h"
#include "ui/main_form.h"

namespace tessarin {

// The main window's menu: every control by its name, with its caption and state.
class MainMenuTest : public QObject {
    Q_OBJECT

  private:
    testing::TempFolder program_folder_;
    MainForm* form_ = nullptr;

  private slots:
    void init() { form_ = new MainForm(program_folder_.Folder()); }
    void cleanup() { delete form_; }

    // Catches a changed caption, or a missing, renamed or misplaced menu.
    void captionAndMenusInOrder() {
        QCOMPARE(form_->windowTitle(), "TESSARIN: Grammatical Complexity Analysis for Windows");
        QStringList titles;
        for (QAction* action : form_->menuBar()->actions())
            titles << action->menu()->objectName() + "=" + action->text();
        QCOMPARE(titles, (QStringList{"Menu_File=&File", "Menu_Edit=&Edit", "Menu_View=&View", "Menu_Calc=&Calc",
                                      "Menu_Help=&Help"}));
    }

    void items_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("caption");
        // Each row catches an item the program (and its tests) cannot find by name, a changed
        // caption, a working command greyed out, or an item offered whose analysis is not built yet.
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
        QAction* action = form_->findChild<QAction*>(name);
        QVERIFY2(action != nullptr, qPrintable(name));
        QTEST(action->text(), "caption");
        QVERIFY(action->isEnabled());
    }

    // Catches the setting missing from the File menu, offered as a command, or checked at the start.
    void foldCapitalsIsAnUncheckedSettingBelowDisplay() {
        QAction* fold = form_->findChild<QAction*>("File_FoldCapitals");
        QVERIFY(fold != nullptr);
        QCOMPARE(fold->text(), "Fold Letters to &Capitals");
        QVERIFY(fold->isCheckable());
        QVERIFY(!fold->isChecked());
        const QList<QAction*> file = form_->findChild<QMenu*>("Menu_File")->actions();
        QCOMPARE(file.indexOf(fold), file.indexOf(form_->findChild<QAction*>("View_DisplaySequenceFile")) + 1);
    }

    // Catches a With/Without Positions pair missing, out of order, or in the wrong submenu.
    void positionSubmenus() {
        const char* submenus[][3] = {
            {"Calc_FindRepeatedWords", "&Repeating Subwords", "Subwords_WithPositions"},
            {"Calc_ExceptionalSubwords", "E&xceptional Subwords", "Exceptional_WithPositions"}};
        for (const auto& [name, caption, pair] : submenus) {
            auto* submenu = form_->findChild<QMenu*>(name);
            QVERIFY2(submenu != nullptr, name);
            QCOMPARE(submenu->title(), caption);
            QStringList items;
            for (QAction* action : submenu->actions())
                items << action->objectName();
            QCOMPARE(items, (QStringList{QString(pair) + "_0", QString(pair) + "_1"}));
        }
    }

    // Catches the help not reached by the platform's help key, and two items on one key, which
    // Qt treats as ambiguous and so fires neither.
    void standardKeysReachTheirItems() {
        form_->show();
        QVERIFY(QTest::qWaitForWindowActive(form_));
        QTest::keySequence(form_, QKeySequence(QKeySequence::HelpContents));
        QVERIFY(std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget* window) {
            return window->isVisible() && window->windowTitle() == "Using Tessarin";
        }));
        QList<QKeySequence> keys;
        for (QAction* action : form_->findChildren<QAction*>()) {
            if (action->shortcut().isEmpty()) continue;
            QVERIFY2(!keys.contains(action->shortcut()), qPrintable(action->objectName()));
            keys << action->shortcut();
        }
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window != form_) window->close();
        }
    }

    // Catches a separator missing, unnamed, or in another menu.
    void separators() {
        const std::pair<const char*, QStringList> menus[] = {
            {"Menu_File", {"File_line", "File_Line0", "File_line1"}},
            {"Menu_Edit", {"Edit_Line0", "Edit_Line1", "Edit_Line2"}},
            {"Menu_Calc", {"Calc_line2", "Calc_line3", "Calc_line4", "Calc_Line1"}},
        };
        for (const auto& [menu, separators] : menus) {
            QStringList found;
            for (QAction* action : form_->findChild<QMenu*>(menu)->actions()) {
                if (action->isSeparator()) found << action->objectName();
            }
            QCOMPARE(found, separators);
        }
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::MainMenuTest)
#include "main_menu_test.moc"
