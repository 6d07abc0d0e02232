#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <filesystem>
#include <memory>
#include <vector>

#include "generate/number_series.h"

class QButtonGroup;
class QPainter;

namespace tessarin {

// The distribution function P(x) of a series (its normalised histogram), or the series against
// its index.
enum class PlotView { kDistribution = 0, kSeries = 1 };

// A series ready to draw: the values with their statistics, the partition thresholds t(0..A)
// (empty before a discretisation), and the histogram behind P(x).
class SeriesPlot {
  public:
    SeriesPlot(NumberSeries series, std::vector<float> thresholds);

    // Draws the view into `area`: the curve in `color`, the mean marked " Avg", the band
    // mean +- r.m.s. marked " r.m.s.", and the thresholds over it.
    void Paint(QPainter& painter, const QRectF& area, PlotView view, const QColor& color) const;

    const NumberSeries& series() const { return series_; }
    void SetThresholds(std::vector<float> thresholds) { thresholds_ = std::move(thresholds); }
    // The histogram's bins: about 2 N^(1/3) (Rice's rule), between 5 and 200.
    const std::vector<double>& density() const { return density_; }

  private:
    void PaintDistribution(QPainter& painter, const QRectF& plot, const QColor& color) const;
    void PaintSeries(QPainter& painter, const QRectF& plot, const QColor& color) const;

    NumberSeries series_;
    std::vector<float> thresholds_;
    double low_ = 0;  // the histogram's range: minimum..maximum, widened for a constant series
    double high_ = 1;
    std::vector<double> density_;  // P(x) per bin: the fraction of values in it over its width
};

// Writes the plot as a PNG or, for a name ending in ".svg", an SVG image; answers whether it was
// written. Needs a QGuiApplication (the "offscreen" platform will do) for the fonts of the labels.
bool SavePlotImage(const SeriesPlot& plot, const QString& path, PlotView view = PlotView::kDistribution,
                   const QColor& color = Qt::blue);
bool SavePlotImage(const NumberSeries& series, const std::vector<float>& thresholds, const QString& path);

// The plot window: P(x) or the series, the colour of the curve from the "Choose Color" dialog,
// and saving as PNG or SVG. Controls: View_Obt_0 / View_Obt_1, Color_Cbt, Save_Cbt, Plot_Pbx.
class Plot_Form : public QWidget {
    Q_OBJECT

  public:
    // A window of its own that deletes itself when closed; `image_start` is where the save
    // dialog starts.
    Plot_Form(NumberSeries series, std::vector<float> thresholds, const QString& caption,
              std::filesystem::path image_start = {}, QWidget* parent = nullptr);

    // Draws the partition of a discretisation over the plot.
    void SetThresholds(std::vector<float> thresholds);
    void SetView(PlotView view);
    PlotView View() const { return view_; }
    void SetCurveColor(const QColor& color);
    QColor CurveColor() const { return color_; }

    // Writes the current view, PNG or SVG by the name's ending; answers whether it was written.
    bool SaveImage(const QString& path) const;

  private:
    void ChooseColor();
    void SaveAs();

    std::unique_ptr<SeriesPlot> plot_;
    PlotView view_ = PlotView::kDistribution;
    QColor color_ = Qt::blue;
    QButtonGroup* views_;
    QWidget* canvas_;
    std::filesystem::path image_start_;
};

}  // namespace tessarin
