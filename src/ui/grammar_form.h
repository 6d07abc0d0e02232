#pragma once

#include <QDialog>
#include <QString>

class QButtonGroup;

namespace tessarin {

// Bits of the grammar options word.
inline constexpr int kGrammarOptionsConfirmed = 1;  // the options form was closed with OK
inline constexpr int kGrammarOptionsAllFiles = 2;   // analyse every file of the folder

// The grammar options form: the rule-selection method and whether one file or the whole folder
// is analysed. The buttons are named Method_Obt_<index> and Analyze_Obt_<index>.
class Grammar_Form : public QDialog {
    Q_OBJECT

  public:
    explicit Grammar_Form(QWidget* parent = nullptr);

    // Shows the form modally with the given method (0..3) and scope (kGrammarOptionsAllFiles);
    // on OK writes the chosen method and the options, with kGrammarOptionsConfirmed set, back and
    // answers true. Cancel changes nothing.
    bool Settings(int& method, int& options);

    QString FormName() const { return "GrammarForm"; }

  private:
    QButtonGroup* methods_;
    QButtonGroup* scopes_;
    int method_ = 0;
    int options_ = 0;
};

}  // namespace tessarin
