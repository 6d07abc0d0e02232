#include "ui/main_surface.h"

#include <QFontMetrics>
#include <QPlainTextEdit>

#include "ui/fonts.h"
#include "ui/title_view.h"

namespace tessarin {
namespace {

constexpr int kTabWidthInCharacters = 8;

}  // namespace

MainSurface::MainSurface(QWidget* parent)
    : QStackedWidget(parent), title_(new TitleView(this)), results_(new QPlainTextEdit(this)) {
    results_->setObjectName("Results");
    results_->setReadOnly(true);
    // Keys belong to the main window, where any key cancels a run; the lines stay selectable.
    results_->setFocusPolicy(Qt::NoFocus);
    results_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    results_->setLineWrapMode(QPlainTextEdit::NoWrap);
    results_->setFont(FixedPitchFont());
    results_->setTabStopDistance(QFontMetricsF(results_->font()).horizontalAdvance(' ') * kTabWidthInCharacters);
    addWidget(title_);
    addWidget(results_);
    setCurrentWidget(title_);
}

void MainSurface::AppendLine(const QString& line) {
    ShowResults();
    results_->appendPlainText(line);
    ++line_count_;
}

void MainSurface::Clear() {
    ShowResults();
    results_->clear();
    line_count_ = 0;
}

QStringList MainSurface::Lines() const {
    if (line_count_ == 0) return {};
    return results_->toPlainText().split('\n');
}

void MainSurface::ShowResults() {
    setCurrentWidget(results_);
}

}  // namespace tessarin
