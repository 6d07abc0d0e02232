#include "ui/plot_form.h"

#include <QButtonGroup>
#include <QColorDialog>
#include <QHBoxLayout>
#include <QImage>
#include <QMessageBox>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QRadioButton>
#include <QSvgGenerator>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "logfile/log_file.h"
#include "ui/file_dialog.h"
#include "ui/qt_text.h"

namespace tessarin {
namespace {

constexpr QMarginsF kMargins(64, 28, 28, 40);
constexpr QSize kImageSize(800, 600);
const QColor kBandColor(0, 0, 0, 28);
const QColor kThresholdColor(170, 0, 0);

// Maps the value range lo..hi onto the pixel range from..to.
struct Axis {
    double lo;
    double hi;
    double from;
    double to;

    double operator()(double value) const { return from + (value - lo) / (hi - lo) * (to - from); }
};

// The range of the values, the band mean +- r.m.s. and the thresholds, so that all show; a
// single point is widened to a unit range.
std::pair<double, double> ShownRange(double lo, double hi, const SeriesStatistics& statistics,
                                     const std::vector<float>& thresholds) {
    lo = std::min(lo, statistics.mean - statistics.deviation);
    hi = std::max(hi, statistics.mean + statistics.deviation);
    if (!thresholds.empty()) {
        lo = std::min<double>(lo, thresholds.front());
        hi = std::max<double>(hi, thresholds.back());
    }
    if (hi - lo <= 0) return {lo - 0.5, hi + 0.5};
    return {lo, hi};
}

QString AxisNumber(double value) {
    return QString::number(value, 'g', 4);
}

void PaintFrame(QPainter& painter, const QRectF& plot, const QString& title, const Axis& x, const Axis& y) {
    painter.setPen(Qt::black);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(plot);
    const QFontMetricsF metrics(painter.font());
    painter.drawText(QPointF(plot.left(), plot.top() - metrics.descent() - 4), title);
    const double below = plot.bottom() + metrics.ascent() + 4;
    painter.drawText(QPointF(plot.left(), below), AxisNumber(x.lo));
    const QString high = AxisNumber(x.hi);
    painter.drawText(QPointF(plot.right() - metrics.horizontalAdvance(high), below), high);
    const QString top = AxisNumber(y.hi);
    const QString bottom = AxisNumber(y.lo);
    painter.drawText(QPointF(plot.left() - metrics.horizontalAdvance(top) - 6, plot.top() + metrics.ascent()), top);
    painter.drawText(QPointF(plot.left() - metrics.horizontalAdvance(bottom) - 6, plot.bottom()), bottom);
}

// The band mean +- r.m.s. and the mean across the plot, vertical when `vertical`.
void PaintMarks(QPainter& painter, const QRectF& plot, const Axis& axis, const SeriesStatistics& statistics,
                bool vertical) {
    const double mean = axis(statistics.mean);
    const double low = axis(statistics.mean - statistics.deviation);
    const double high = axis(statistics.mean + statistics.deviation);
    const QFontMetricsF metrics(painter.font());
    painter.setPen(Qt::NoPen);
    painter.setBrush(kBandColor);
    painter.drawRect(vertical ? QRectF(QPointF(low, plot.top()), QPointF(high, plot.bottom()))
                              : QRectF(QPointF(plot.left(), high), QPointF(plot.right(), low)));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::darkGray, 1, Qt::DashLine));
    if (vertical) {
        painter.drawLine(QPointF(mean, plot.top()), QPointF(mean, plot.bottom()));
        painter.setPen(Qt::black);
        painter.drawText(QPointF(mean, plot.top() + metrics.height()), " Avg");
        painter.drawText(QPointF(high, plot.top() + 2 * metrics.height()), " r.m.s.");
    } else {
        painter.drawLine(QPointF(plot.left(), mean), QPointF(plot.right(), mean));
        painter.setPen(Qt::black);
        painter.drawText(QPointF(plot.left(), mean - metrics.descent()), " Avg");
        painter.drawText(QPointF(plot.left(), high - metrics.descent()), " r.m.s.");
    }
}

void PaintThresholds(QPainter& painter, const QRectF& plot, const Axis& axis, const std::vector<float>& thresholds,
                     bool vertical) {
    // Crisp, not antialiased: thin lines blended into the band would fade.
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(kThresholdColor, 1, Qt::DashLine));
    for (const float t : thresholds) {
        const double at = std::round(axis(t));
        painter.drawLine(vertical ? QLineF(at, plot.top(), at, plot.bottom())
                                  : QLineF(plot.left(), at, plot.right(), at));
    }
    painter.restore();
}

}  // namespace

SeriesPlot::SeriesPlot(NumberSeries series, std::vector<float> thresholds)
    : series_(std::move(series)), thresholds_(std::move(thresholds)) {
    const std::vector<float>& values = series_.values;
    if (values.empty()) return;
    low_ = series_.statistics.minimum;
    high_ = series_.statistics.maximum;
    if (high_ - low_ <= 0) {
        low_ -= 0.5;
        high_ += 0.5;
    }
    const auto n = static_cast<double>(values.size());
    const auto bins = static_cast<std::size_t>(std::clamp(std::round(2 * std::cbrt(n)), 5.0, 200.0));
    const double width = (high_ - low_) / static_cast<double>(bins);
    std::vector<double> counts(bins, 0.0);
    for (const float v : values) {
        const auto bin = static_cast<std::size_t>(std::clamp((v - low_) / width, 0.0, static_cast<double>(bins) - 1));
        counts[bin] += 1;
    }
    density_.resize(bins);
    for (std::size_t b = 0; b < bins; ++b)
        density_[b] = counts[b] / (n * width);
}

void SeriesPlot::Paint(QPainter& painter, const QRectF& area, PlotView view, const QColor& color) const {
    painter.save();
    painter.fillRect(area, Qt::white);
    const QRectF plot = area.marginsRemoved(kMargins);
    if (plot.width() > 10 && plot.height() > 10 && !series_.values.empty()) {
        painter.setRenderHint(QPainter::Antialiasing);
        if (view == PlotView::kDistribution) {
            PaintDistribution(painter, plot, color);
        } else {
            PaintSeries(painter, plot, color);
        }
    }
    painter.restore();
}

void SeriesPlot::PaintDistribution(QPainter& painter, const QRectF& plot, const QColor& color) const {
    const auto [lo, hi] = ShownRange(low_, high_, series_.statistics, thresholds_);
    const Axis x{lo, hi, plot.left(), plot.right()};
    const double top = *std::max_element(density_.begin(), density_.end()) * 1.1;
    const Axis y{0, top, plot.bottom(), plot.top()};
    PaintMarks(painter, plot, x, series_.statistics, true);
    PaintThresholds(painter, plot, x, thresholds_, true);

    // P(x) as steps over the bins.
    const double width = (high_ - low_) / static_cast<double>(density_.size());
    QPainterPath curve(QPointF(x(low_), y(0)));
    for (std::size_t b = 0; b < density_.size(); ++b) {
        curve.lineTo(x(low_ + static_cast<double>(b) * width), y(density_[b]));
        curve.lineTo(x(low_ + static_cast<double>(b + 1) * width), y(density_[b]));
    }
    curve.lineTo(x(high_), y(0));
    painter.setPen(QPen(color, 2));
    painter.drawPath(curve);
    PaintFrame(painter, plot, "P(x)", x, y);
}

void SeriesPlot::PaintSeries(QPainter& painter, const QRectF& plot, const QColor& color) const {
    const std::vector<float>& values = series_.values;
    const auto n = values.size();
    const auto [lo, hi] =
        ShownRange(series_.statistics.minimum, series_.statistics.maximum, series_.statistics, thresholds_);
    const Axis x{1, std::max(2.0, static_cast<double>(n)), plot.left(), plot.right()};
    const Axis y{lo, hi, plot.bottom(), plot.top()};
    PaintMarks(painter, plot, y, series_.statistics, false);
    PaintThresholds(painter, plot, y, thresholds_, false);

    // Beyond two values per pixel column, each column shows the span of its values.
    QPainterPath curve(QPointF(x(1), y(values[0])));
    const auto columns = static_cast<std::size_t>(plot.width());
    if (n <= 2 * columns) {
        for (std::size_t i = 1; i < n; ++i)
            curve.lineTo(x(static_cast<double>(i + 1)), y(values[i]));
    } else {
        for (std::size_t c = 0; c < columns; ++c) {
            const auto [low, high] =
                std::minmax_element(values.begin() + static_cast<std::ptrdiff_t>(c * n / columns),
                                    values.begin() + static_cast<std::ptrdiff_t>((c + 1) * n / columns));
            const double at = plot.left() + static_cast<double>(c) + 0.5;
            curve.lineTo(at, y(*low));
            curve.lineTo(at, y(*high));
        }
    }
    painter.setPen(QPen(color, 1));
    painter.drawPath(curve);
    PaintFrame(painter, plot, "x(i)", x, y);
}

bool SavePlotImage(const SeriesPlot& plot, const QString& path, PlotView view, const QColor& color) {
    const QRectF area(QPointF(0, 0), kImageSize);
    QPainter painter;
    if (path.endsWith(".svg", Qt::CaseInsensitive)) {
        QSvgGenerator svg;
        svg.setFileName(path);
        svg.setSize(kImageSize);
        svg.setViewBox(area);
        svg.setTitle(view == PlotView::kDistribution ? "P(x)" : "x(i)");
        if (!painter.begin(&svg)) return false;
        plot.Paint(painter, area, view, color);
        return painter.end();
    }
    QImage image(kImageSize, QImage::Format_ARGB32);
    if (!painter.begin(&image)) return false;
    plot.Paint(painter, area, view, color);
    painter.end();
    return image.save(path, "PNG");
}

bool SavePlotImage(const NumberSeries& series, const std::vector<float>& thresholds, const QString& path) {
    return SavePlotImage(SeriesPlot(series, thresholds), path);
}

namespace {

// The drawing surface of the plot window.
class PlotCanvas : public QWidget {
  public:
    PlotCanvas(const Plot_Form& form, const SeriesPlot& plot, QWidget* parent)
        : QWidget(parent), form_(form), plot_(plot) {
        setObjectName("Plot_Pbx");
        setMinimumSize(480, 360);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        plot_.Paint(painter, rect(), form_.View(), form_.CurveColor());
    }

  private:
    const Plot_Form& form_;
    const SeriesPlot& plot_;
};

}  // namespace

Plot_Form::Plot_Form(NumberSeries series, std::vector<float> thresholds, const QString& caption,
                     std::filesystem::path image_start, QWidget* parent)
    : QWidget(parent, Qt::Window),
      plot_(std::make_unique<SeriesPlot>(std::move(series), std::move(thresholds))),
      views_(new QButtonGroup(this)),
      canvas_(new PlotCanvas(*this, *plot_, this)),
      image_start_(std::move(image_start)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(caption);
    if (!image_start_.has_filename()) image_start_ /= "plot.png";

    auto* controls = new QHBoxLayout();
    const char* captions[] = {"P(x)", "Series"};
    for (int i = 0; i < 2; ++i) {
        auto* button = new QRadioButton(captions[i], this);
        button->setObjectName(QString("View_Obt_%1").arg(i));
        views_->addButton(button, i);
        controls->addWidget(button);
    }
    views_->button(0)->setChecked(true);
    controls->addStretch();
    auto* color = new QPushButton("&Color...", this);
    color->setObjectName("Color_Cbt");
    auto* save = new QPushButton("&Save As...", this);
    save->setObjectName("Save_Cbt");
    controls->addWidget(color);
    controls->addWidget(save);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(controls);
    layout->addWidget(canvas_, 1);

    connect(views_, &QButtonGroup::idToggled, this, [this](int index, bool checked) {
        if (checked) SetView(static_cast<PlotView>(index));
    });
    connect(color, &QPushButton::clicked, this, &Plot_Form::ChooseColor);
    connect(save, &QPushButton::clicked, this, &Plot_Form::SaveAs);
}

void Plot_Form::SetThresholds(std::vector<float> thresholds) {
    plot_->SetThresholds(std::move(thresholds));
    canvas_->update();
}

void Plot_Form::SetView(PlotView view) {
    view_ = view;
    views_->button(static_cast<int>(view))->setChecked(true);
    canvas_->update();
}

void Plot_Form::SetCurveColor(const QColor& color) {
    color_ = color;
    canvas_->update();
}

bool Plot_Form::SaveImage(const QString& path) const {
    return SavePlotImage(*plot_, path, view_, color_);
}

void Plot_Form::ChooseColor() {
    const QColor chosen = QColorDialog::getColor(color_, this, "Choose Color");
    if (chosen.isValid()) SetCurveColor(chosen);
}

void Plot_Form::SaveAs() {
    const auto choice = ChooseFileWithDialog(this, FileDialogKind::kSave, image_start_, "*.png *.svg");
    if (!choice) return;
    image_start_ = *choice;
    const QString path = FromPath(*choice);
    if (!SaveImage(path)) QMessageBox::warning(this, kMessageTitle, "Cannot write the image file " + path);
}

}  // namespace tessarin
