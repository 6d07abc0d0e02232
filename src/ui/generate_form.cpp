#include "ui/generate_form.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>

#include "generate/leading_number.h"
#include "logfile/log_file.h"
#include "logfile/number_text.h"
#include "ui/form_buttons.h"
#include "ui/qt_text.h"

namespace tessarin {
namespace {

constexpr const char* kFormats[] = {"Numbers, 1 per Line", "Symbols, 1 per Line", "Symbols, All in 1 Line"};
// In the order of SignalSource; the y and z coordinates are chosen beside them.
constexpr const char* kSources[] = {"White Noise", "Exponential Noise", "Gaussian Noise", "Logistic Map",
                                    "Henon:  X",   "Lorenz:  X",        "Sine Wave",      "Bernoulli"};
constexpr const char* kCoordinates[] = {"X", "Y", "Z"};
constexpr const char* kPartitions[] = {"Equal Frequency", "Equal Intervals", "Multiples of R.M.S."};

// A frame of radio buttons named `group_name`_<index>, each button's index also its group id.
template <std::size_t kCount>
QGroupBox* ButtonFrame(const char* frame_name, const QString& title, const char* group_name,
                       const char* const (&captions)[kCount], QButtonGroup* group, QWidget* parent) {
    auto* frame = new QGroupBox(title, parent);
    frame->setObjectName(frame_name);
    auto* layout = new QVBoxLayout(frame);
    for (std::size_t i = 0; i < kCount; ++i) {
        auto* button = new QRadioButton(captions[i], frame);
        button->setObjectName(QString("%1_%2").arg(group_name).arg(i));
        group->addButton(button, static_cast<int>(i));
        layout->addWidget(button);
    }
    return frame;
}

QLineEdit* NumberBox(const char* name, QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    return box;
}

// A number in its box: the number text with a "0" before a leading point, so a half shows " 0.5".
QString BoxText(const std::string& number) {
    QString text = FromDisplayText(number);
    if (text.size() > 1 && text[1] == '.') text.insert(1, '0');
    return text;
}

// A typed number, read as an input box reads it: the leading number, 0 when there is none.
double BoxNumber(const QLineEdit* box) {
    return LeadingNumber(ToBytes(box->text()));
}

}  // namespace

Generate_Form::Generate_Form(QWidget* parent)
    : QDialog(parent),
      formats_(new QButtonGroup(this)),
      sources_(new QButtonGroup(this)),
      coordinates_(new QButtonGroup(this)),
      partitions_(new QButtonGroup(this)),
      length_(NumberBox("Length_Tbx", this)),
      alphabet_(NumberBox("Alphabet_Tbx", this)),
      logistic_r_(NumberBox("R_Tbx", this)),
      period_(NumberBox("Period_Tbx", this)),
      bernoulli_n_(NumberBox("BernoulliN_Tbx", this)),
      bernoulli_p_(NumberBox("BernoulliP_Tbx", this)) {
    setWindowTitle("Generation Options");
    source_frame_ = ButtonFrame("Source_Frm", "Source", "Source_Obt", kSources, sources_, this);
    coordinate_frame_ = ButtonFrame("Coordinate_Frm", "Coordinate", "Coordinate_Obt", kCoordinates, coordinates_, this);

    auto* numbers = new QFormLayout();
    const std::pair<const char*, QLineEdit*> rows[] = {
        {"Sequence Length", length_}, {"Alphabet Size", alphabet_},  {"Logistic R", logistic_r_},
        {"Sine Period T", period_},   {"Bernoulli n", bernoulli_n_}, {"Bernoulli p", bernoulli_p_},
    };
    for (const auto& [caption, box] : rows)
        numbers->addRow(caption, box);

    auto* left = new QVBoxLayout();
    left->addWidget(ButtonFrame("Format_Frm", "Output", "Format_Obt", kFormats, formats_, this));
    left->addWidget(ButtonFrame("Partition_Frm", "Partition", "Partition_Obt", kPartitions, partitions_, this));
    left->addLayout(numbers);
    auto* right = new QVBoxLayout();
    right->addWidget(source_frame_);
    right->addWidget(coordinate_frame_);
    right->addStretch();
    auto* columns = new QHBoxLayout();
    columns->addLayout(left);
    columns->addLayout(right);

    QHBoxLayout* buttons = OkCancelButtons(*this, [this] { Confirm(); });

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(buttons);

    connect(sources_, &QButtonGroup::idToggled, this, [this](int, bool checked) {
        if (checked) UpdateCoordinates();
    });
}

bool Generate_Form::Settings(GenerateParams& params) {
    shown_ = params;
    confirmed_ = false;
    Load(params);
    FocusCheckedOption(*formats_);
    exec();
    if (!confirmed_) return false;
    params = Read(params);
    return true;
}

void Generate_Form::Load(const GenerateParams& params) {
    formats_->button(static_cast<int>(params.format))->setChecked(true);
    sources_->button(static_cast<int>(params.source))->setChecked(true);
    coordinates_->button(std::clamp(params.coordinate, 0, 2))->setChecked(true);
    partitions_->button(static_cast<int>(params.partition))->setChecked(true);
    length_->setText(BoxText(IntegerText(params.length)));
    alphabet_->setText(BoxText(IntegerText(params.alphabet_size)));
    logistic_r_->setText(BoxText(SingleText(params.logistic_r)));
    period_->setText(BoxText(SingleText(params.sine_period)));
    bernoulli_n_->setText(BoxText(IntegerText(params.bernoulli_n)));
    bernoulli_p_->setText(BoxText(SingleText(params.bernoulli_p)));

    // A series read from a file needs no source.
    const bool generating = params.mode == GenerateMode::kGenerate;
    for (QWidget* control :
         std::initializer_list<QWidget*>{source_frame_, length_, logistic_r_, period_, bernoulli_n_, bernoulli_p_}) {
        control->setEnabled(generating);
    }
    UpdateCoordinates();
}

GenerateParams Generate_Form::Read(const GenerateParams& params) const {
    GenerateParams read = params;
    read.format = static_cast<OutputFormat>(formats_->checkedId());
    read.partition = static_cast<Partition>(partitions_->checkedId());
    read.alphabet_size = RoundedToInt(BoxNumber(alphabet_));
    if (params.mode == GenerateMode::kGenerate) {
        read.source = static_cast<SignalSource>(sources_->checkedId());
        read.coordinate = CoordinateCount(read.source) > 1 ? coordinates_->checkedId() : 0;
        read.length = RoundedToInt(BoxNumber(length_));
        read.logistic_r = static_cast<float>(BoxNumber(logistic_r_));
        read.sine_period = static_cast<float>(BoxNumber(period_));
        read.bernoulli_n = RoundedToInt(BoxNumber(bernoulli_n_));
        read.bernoulli_p = static_cast<float>(BoxNumber(bernoulli_p_));
    }
    return read;
}

void Generate_Form::Confirm() {
    if (const auto refusal = GenerateSettingsRefusal(Read(shown_))) {
        QMessageBox::warning(this, kMessageTitle, FromDisplayText(*refusal));
        return;
    }
    confirmed_ = true;
    accept();
}

// Only the Henon map (x, y) and the Lorenz system (x, y, z) have coordinates to choose.
void Generate_Form::UpdateCoordinates() {
    const int count = shown_.mode == GenerateMode::kGenerate
                          ? CoordinateCount(static_cast<SignalSource>(std::max(sources_->checkedId(), 0)))
                          : 1;
    coordinate_frame_->setEnabled(count > 1);
    for (int i = 0; i < 3; ++i)
        coordinates_->button(i)->setEnabled(i < count);
    if (coordinates_->checkedId() >= count) coordinates_->button(0)->setChecked(true);
}

}  // namespace tessarin
