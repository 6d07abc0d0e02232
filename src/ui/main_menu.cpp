#include "ui/main_menu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace tessarin {
namespace {

QMenu* AddMenu(QMenuBar& bar, const char* name, const char* caption) {
    QMenu* menu = bar.addMenu(caption);
    menu->setObjectName(name);
    return menu;
}

QAction* AddItem(QMenu& menu, const QString& name, const char* caption) {
    QAction* action = menu.addAction(caption);
    action->setObjectName(name);
    return action;
}

// An item whose analysis is not part of the program yet.
void AddComingItem(QMenu& menu, const char* name, const char* caption) {
    AddItem(menu, name, caption)->setEnabled(false);
}

void AddSeparator(QMenu& menu, const char* name) {
    menu.addSeparator()->setObjectName(name);
}

// A submenu with the indexed pair "With Positions" (0) / "Without Positions" (1).
std::array<QAction*, 2> AddPositionsPair(QMenu& menu, const char* name, const char* caption, const char* pair_name) {
    QMenu* submenu = menu.addMenu(caption);
    submenu->setObjectName(name);
    std::array<QAction*, 2> pair{};
    const char* captions[] = {"With &Positions", "&Without Positions"};
    for (int index = 0; index < 2; ++index) {
        pair[index] = AddItem(*submenu, QString("%1_%2").arg(pair_name).arg(index), captions[index]);
        pair[index]->setData(index);
    }
    return pair;
}

}  // namespace

MainMenu BuildMainMenu(QMenuBar& bar) {
    MainMenu items{};

    QMenu* file = AddMenu(bar, "Menu_File", "&File");
    items.display_sequence_file = AddItem(*file, "View_DisplaySequenceFile", "&Display Sequence File");
    AddSeparator(*file, "File_line");
    items.save_image_as = AddItem(*file, "File_SaveImageAs", "&Save Image As");
    AddSeparator(*file, "File_Line0");
    items.print = AddItem(*file, "File_Print", "&Print");
    AddSeparator(*file, "File_line1");
    items.exit = AddItem(*file, "File_Exit", "E&xit");

    QMenu* edit = AddMenu(bar, "Menu_Edit", "&Edit");
    items.copy = AddItem(*edit, "Edit_Copy", "&Copy");
    AddSeparator(*edit, "Edit_Line0");
    AddComingItem(*edit, "Edit_Fractionate", "&Fractionate Sequence");
    AddComingItem(*edit, "Edit_ChangeAlphabet", "Change &Alphabet");
    AddComingItem(*edit, "Edit_RemoveFileContext", "&Remove File Context");
    AddSeparator(*edit, "Edit_Line1");
    AddComingItem(*edit, "Edit_GenerateSequence", "&Generate a Sequence");
    AddComingItem(*edit, "Edit_DiscretizeTimeSeries", "&Discretize a Time Series");
    items.create_test_sequence = AddItem(*edit, "Edit_CreateTestSequence", "Create Test Sequence");
    AddSeparator(*edit, "Edit_Line2");
    AddComingItem(*edit, "File_MakeSurrogateFiles", "&Make Surrogate Files");

    QMenu* view = AddMenu(bar, "Menu_View", "&View");
    items.close_text_windows = AddItem(*view, "View_CloseallTextWindows", "Close All &Text Windows");
    items.close_plot_windows = AddItem(*view, "View_CloseallPlotWindows", "Close All &Plot Windows");

    QMenu* calc = AddMenu(bar, "Menu_Calc", "&Calc");
    items.repeated_words =
        AddPositionsPair(*calc, "Calc_FindRepeatedWords", "&Repeating Subwords", "Subwords_WithPositions");
    items.exceptional_words =
        AddPositionsPair(*calc, "Calc_ExceptionalSubwords", "E&xceptional Subwords", "Exceptional_WithPositions");
    AddSeparator(*calc, "Calc_line2");
    items.subword_entropies = AddItem(*calc, "Calc_PartialEntropies", "Subword &Entropies");
    items.conditional_uncertainties = AddItem(*calc, "Calc_ConditionalEntropies", "&Local Conditional Uncertainties");
    AddSeparator(*calc, "Calc_line3");
    items.grammar_complexity = AddItem(*calc, "Calc_GrammarComplexity", "&Grammatical Complexity");
    AddSeparator(*calc, "Calc_line4");
    AddComingItem(*calc, "Calc_AlgorithmicDistance", "&Algorithmic Distance");
    AddComingItem(*calc, "Calc_BuildTree", "Distance Matrix / &Tree");
    AddSeparator(*calc, "Calc_Line1");
    AddComingItem(*calc, "Calc_SurrogateStatistics", "&Surrogate Statistics");

    QMenu* help = AddMenu(bar, "Menu_Help", "&Help");
    items.about = AddItem(*help, "Help_About", "&About");
    items.references = AddItem(*help, "Help_Literature", "&References");
    items.using_tessarin = AddItem(*help, "Help_UsingTessarin", "&Using Tessarin");
    return items;
}

}  // namespace tessarin
