#include "ui/grammar_form.h"
#include "ui/form_buttons.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tessarin {
namespace {

struct IndexedCaption {
    int index;
    const char* caption;
};

// Listed top to bottom, as the buttons stand in the form.
constexpr IndexedCaption kMethods[] = {
    {3, "Maximum Gain per Step"},
    {2, "Longest Words First"},
    {1, "Shortest Words First"},
    {0, "NVOGRAM"},
};
constexpr IndexedCaption kScopes[] = {
    {0, "Only the Selected Sequence File"},
    {1, "All Files in Folder with Same Extension as the Selected One"},
};
constexpr int kMethodCount = 4;

// A frame of radio buttons named `group_name`_<index>, each button's index also its group id.
QGroupBox* ButtonFrame(const char* frame_name, const QString& title, const char* group_name,
                       const IndexedCaption* buttons, int count, QButtonGroup* group, QWidget* parent) {
    auto* frame = new QGroupBox(title, parent);
    frame->setObjectName(frame_name);
    auto* layout = new QVBoxLayout(frame);
    for (int i = 0; i < count; ++i) {
        auto* button = new QRadioButton(buttons[i].caption, frame);
        button->setObjectName(QString("%1_%2").arg(group_name).arg(buttons[i].index));
        group->addButton(button, buttons[i].index);
        layout->addWidget(button);
    }
    return frame;
}

}  // namespace

Grammar_Form::Grammar_Form(QWidget* parent)
    : QDialog(parent), methods_(new QButtonGroup(this)), scopes_(new QButtonGroup(this)) {
    setWindowTitle("Grammar Options");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ButtonFrame("Method_Frm", "Method", "Method_Obt", kMethods, kMethodCount, methods_, this));
    layout->addWidget(ButtonFrame("Analyze_Frm", "Analyze", "Analyze_Obt", kScopes, 2, scopes_, this));

    QHBoxLayout* buttons = OkCancelButtons(*this, [this] {
        options_ |= kGrammarOptionsConfirmed;
        accept();
    });
    layout->addLayout(buttons);

    connect(methods_, &QButtonGroup::idToggled, this, [this](int index, bool checked) {
        if (checked) method_ = index;
    });
    connect(scopes_, &QButtonGroup::idToggled, this, [this](int index, bool checked) {
        if (!checked) return;
        options_ = index == 1 ? (options_ | kGrammarOptionsAllFiles) : (options_ & ~kGrammarOptionsAllFiles);
    });
}

bool Grammar_Form::Settings(int& method, int& options) {
    options_ = options & ~kGrammarOptionsConfirmed;
    method_ = (method >= 0 && method < kMethodCount) ? method : 0;
    methods_->button(method_)->setChecked(true);
    scopes_->button((options_ & kGrammarOptionsAllFiles) != 0 ? 1 : 0)->setChecked(true);
    FocusCheckedOption(*methods_);
    exec();
    if ((options_ & kGrammarOptionsConfirmed) == 0) return false;
    method = method_;
    options = options_;
    return true;
}

}  // namespace tessarin
