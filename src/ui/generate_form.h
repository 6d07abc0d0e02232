#pragma once

#include <QDialog>
#include <QString>

#include "generate/generate_params.h"

class QButtonGroup;
class QGroupBox;
class QLineEdit;

namespace tessarin {

// The generation options form: output format, source and coordinate, length, alphabet size,
// partition, and the parameters of the logistic map, the sine wave and the Bernoulli counts.
// Buttons are named Format_Obt_<i>, Source_Obt_<i>, Coordinate_Obt_<i> and Partition_Obt_<i>, the
// boxes Length_Tbx, Alphabet_Tbx, R_Tbx, Period_Tbx, BernoulliN_Tbx and BernoulliP_Tbx.
class Generate_Form : public QDialog {
    Q_OBJECT

  public:
    explicit Generate_Form(QWidget* parent = nullptr);

    // Shows the form modally with the settings of `params`; for mode 1 (a series read from a
    // file) the source controls are disabled. OK refuses settings out of range with a message
    // and stays open; on a valid OK writes the settings back and answers true. Cancel changes
    // nothing.
    bool Settings(GenerateParams& params);

    QString FormName() const { return "GenerateForm"; }

  private:
    void Load(const GenerateParams& params);
    // The settings as the controls hold them, the files of `params` kept.
    GenerateParams Read(const GenerateParams& params) const;
    void Confirm();
    void UpdateCoordinates();

    QButtonGroup* formats_;
    QButtonGroup* sources_;
    QButtonGroup* coordinates_;
    QButtonGroup* partitions_;
    QGroupBox* source_frame_;
    QGroupBox* coordinate_frame_;
    QLineEdit* length_;
    QLineEdit* alphabet_;
    QLineEdit* logistic_r_;
    QLineEdit* period_;
    QLineEdit* bernoulli_n_;
    QLineEdit* bernoulli_p_;
    GenerateParams shown_;
    bool confirmed_ = false;
};

}  // namespace tessarin
