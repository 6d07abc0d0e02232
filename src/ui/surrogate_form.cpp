#include "ui/surrogate_form.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "generate/leading_number.h"
#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "surrogate/surrogate_options.h"
#include "ui/form_buttons.h"
#include "ui/qt_text.h"

namespace tessarin {
namespace {

constexpr const char* kLevelCaptions[] = {"&Only Symbols", "&Pairs and Symbols", "&Triples, Pairs, Symbols"};
constexpr const char* kDefaultMaxLengths[] = {" 3", " 4", " 5"};

double BoxNumber(const QLineEdit* box) {
    return LeadingNumber(ToBytes(box->text()));
}

int NonNegative(double value) {
    return std::max(RoundedToInt(value), 0);
}

QCheckBox* CheckBox(const char* name, const QString& caption, QWidget* parent) {
    auto* box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    return box;
}

}  // namespace

Surrogate_Form::Surrogate_Form(QWidget* parent)
    : QDialog(parent),
      number_(new QLineEdit(" 100", this)),
      levels_(new QButtonGroup(this)),
      all_vertices_(CheckBox("AllVertices_Chk", "Shuffle &All Vertices", this)),
      entropy_(CheckBox("Entropy_Chk", "Add &Entropy Values", this)),
      exotic_(CheckBox("Exotic_Chk", "Add Exceptional &Words", this)),
      max_length_label_(new QLabel("Max Word Length", this)),
      max_length_(new QLineEdit(this)) {
    setWindowTitle("Generate Surrogates");
    number_->setObjectName("Number_Tbx");
    max_length_label_->setObjectName("MaxLen_Lbl");
    max_length_->setObjectName("MaxLen_Tbx");
    auto* count_label = new QLabel("Surrogate Count:", this);
    count_label->setObjectName("Label1");

    auto* frame = new QGroupBox("Preserve", this);
    frame->setObjectName("Preserve_Frm");
    auto* frame_layout = new QVBoxLayout(frame);
    for (int k = 0; k < 3; ++k) {
        auto* button = new QRadioButton(kLevelCaptions[k], frame);
        button->setObjectName(QString("Preserve_Obt_%1").arg(k));
        levels_->addButton(button, k);
        frame_layout->addWidget(button);
    }

    auto* layout = new QGridLayout(this);
    layout->addWidget(count_label, 0, 0);
    layout->addWidget(number_, 0, 1);
    layout->addWidget(frame, 1, 0, 1, 2);
    layout->addWidget(all_vertices_, 2, 0, 1, 2);
    layout->addWidget(entropy_, 3, 0, 1, 2);
    layout->addWidget(exotic_, 4, 0, 1, 2);
    layout->addWidget(max_length_label_, 5, 0);
    layout->addWidget(max_length_, 5, 1);
    QHBoxLayout* buttons = OkCancelButtons(*this, [this] { Confirm(); });
    layout->addLayout(buttons, 6, 0, 1, 2);

    // Only the user's clicks change the options word; loading the controls does not.
    connect(levels_, &QButtonGroup::idClicked, this, [this](int k) {
        SetBit(kPreservePairs, k == 1);
        SetBit(kPreserveTriples, k == 2);
    });
    connect(all_vertices_, &QCheckBox::clicked, this, [this](bool checked) { SetBit(kShuffleAllVertices, checked); });
    connect(entropy_, &QCheckBox::clicked, this, [this](bool checked) {
        SetBit(kAddEntropy, checked);
        DoMaxLenSetting();
    });
    connect(exotic_, &QCheckBox::clicked, this, [this](bool checked) {
        SetBit(kAddExceptionalWords, checked);
        DoMaxLenSetting();
    });
}

void Surrogate_Form::SetBit(int bit, bool on) {
    options_ = on ? (options_ | bit) : (options_ & ~bit);
}

void Surrogate_Form::DoMaxLenSetting() {
    if (!entropy_->isChecked() && !exotic_->isChecked()) {
        max_length_->setEnabled(false);
        max_length_label_->setEnabled(false);
        max_length_->clear();
        return;
    }
    if (max_length_->isEnabled() && BoxNumber(max_length_) > 0) return;
    max_length_->setEnabled(true);
    max_length_label_->setEnabled(true);
    max_length_->setText(kDefaultMaxLengths[std::max(levels_->checkedId(), 0)]);
}

void Surrogate_Form::Confirm() {
    if (BoxNumber(number_) < 1) {
        QMessageBox::information(this, kMessageTitle, "Surrogate Count < 1");
        return;
    }
    options_ |= kSurrogateConfirmed;
    accept();
}

bool Surrogate_Form::Settings(int& count, int& options, int& max_length) {
    options_ = options & ~kSurrogateConfirmed;
    number_->setText(FromDisplayText(IntegerText(count)));
    levels_->button(static_cast<int>(PreserveFromOptions(options_)))->setChecked(true);
    all_vertices_->setChecked((options_ & kShuffleAllVertices) != 0);
    entropy_->setChecked((options_ & kAddEntropy) != 0);
    entropy_->setEnabled((options_ & kEntropyEnabled) != 0);
    exotic_->setChecked((options_ & kAddExceptionalWords) != 0);
    exotic_->setEnabled((options_ & kExceptionalEnabled) != 0);
    max_length_->clear();
    DoMaxLenSetting();
    FocusCheckedOption(*levels_);
    exec();
    if ((options_ & kSurrogateConfirmed) == 0) return false;
    options = options_;
    count = NonNegative(BoxNumber(number_));
    max_length = NonNegative(BoxNumber(max_length_));
    return true;
}

}  // namespace tessarin
