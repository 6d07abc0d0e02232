#pragma once

#include <QDialog>
#include <QString>

class QButtonGroup;
class QCheckBox;
class QLabel;
class QLineEdit;

namespace tessarin {

// The surrogate options form "Generate Surrogates": the number of surrogates, the preservation
// level, the uniform shuffle and, for the ensemble run, the entropy and exceptional-word
// comparisons with their maximum word length. The level buttons are named Preserve_Obt_<index>;
// the options word's bits are those of surrogate/surrogate_options.h.
class Surrogate_Form : public QDialog {
    Q_OBJECT

  public:
    explicit Surrogate_Form(QWidget* parent = nullptr);

    // Loads the controls from the count and the options word (kEntropyEnabled and
    // kExceptionalEnabled enable the two check boxes; the maximum-length box takes the level's
    // default when a box is checked) and shows the form modally. On OK writes back the options word
    // with kSurrogateConfirmed set, the count and the maximum word length (rounded, halves to even,
    // 0 when negative or empty) and answers true; Cancel changes nothing.
    bool Settings(int& count, int& options, int& max_length);

    // Keeps the maximum-length box in step with the check boxes: empty and disabled when neither is
    // checked; otherwise a positive value typed into the enabled box is kept, and anything else
    // becomes the level's default (3, 4 or 5 for symbols, pairs, triples).
    void DoMaxLenSetting();

    QString FormName() const { return "SurrogateForm"; }

  private:
    void SetBit(int bit, bool on);
    void Confirm();

    QLineEdit* number_;
    QButtonGroup* levels_;
    QCheckBox* all_vertices_;
    QCheckBox* entropy_;
    QCheckBox* exotic_;
    QLabel* max_length_label_;
    QLineEdit* max_length_;
    int options_ = 0;
};

}  // namespace tessarin
