#pragma once

#include <array>

class QAction;
class QMenuBar;

namespace tessarin {

// The main window's menu items that do something. The menu also holds the items of analyses
// still to come: present, named and captioned, but disabled.
struct MainMenu {
    QAction* display_sequence_file;
    QAction* save_image_as;
    QAction* print;
    QAction* exit;
    QAction* copy;
    QAction* create_test_sequence;
    QAction* close_text_windows;
    QAction* close_plot_windows;
    // Index 0 "With Positions", index 1 "Without Positions"; the index is also the action's data.
    std::array<QAction*, 2> repeated_words;
    std::array<QAction*, 2> exceptional_words;
    QAction* subword_entropies;
    QAction* conditional_uncertainties;
    QAction* grammar_complexity;
    QAction* about;
    QAction* references;
    QAction* using_tessarin;
};

// Fills the menu bar: every item carries its control name as Qt object name, separators too.
MainMenu BuildMainMenu(QMenuBar& bar);

}  // namespace tessarin
