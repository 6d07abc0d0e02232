#include "ui/plot_form.h"

#include <QColorDialog>
#include <QImage>
#include <QPushButton>
#include <QRadioButton>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>
#include <numeric>

#include "modal_answer.h"

namespace tessarin {

using testing::AnswerModal;

namespace {

NumberSeries Ramp(int n) {
    NumberSeries series;
    StatisticsAccumulator statistics;
    for (int i = 0; i < n; ++i) {
        series.values.push_back(static_cast<float>(std::sin(i * 0.01)));
        statistics.Add(series.values.back());
    }
    series.statistics = statistics.Result();
    return series;
}

// A pixel near `color`: antialiased lines blend into the white around them.
bool HasPixel(const QImage& image, const QColor& color) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            const int distance = std::abs(pixel.red() - color.red()) + std::abs(pixel.green() - color.green()) +
                                 std::abs(pixel.blue() - color.blue());
            if (distance < 40) return true;
        }
    }
    return false;
}

}  // namespace

class PlotFormTest : public QObject {
    Q_OBJECT

  private slots:
    // Catches a histogram that is not normalised (P(x) must integrate to 1), or a constant series
    // that divides by a zero range.
    void distributionIsNormalised() {
        const SeriesPlot plot(Ramp(5000), {});
        const SeriesStatistics& statistics = plot.series().statistics;
        const double width =
            (static_cast<double>(statistics.maximum) - statistics.minimum) / static_cast<double>(plot.density().size());
        QCOMPARE(plot.density().size(), std::size_t{34});  // 2 N^(1/3)
        QVERIFY(std::abs(std::accumulate(plot.density().begin(), plot.density().end(), 0.0) * width - 1) < 1e-9);
        NumberSeries constant;
        constant.values.assign(10, 3.0F);
        constant.statistics = {10, 3, 0, 3, 3};
        const SeriesPlot flat(constant, {3, 3, 3});
        QCOMPARE(std::accumulate(flat.density().begin(), flat.density().end(), 0.0), 5.0);  // 5 bins of width 1/5
    }

    // Catches images that do not load back, a curve or thresholds not drawn, and a failure to
    // paint without a screen (the test runs on the offscreen platform).
    void savedImagesLoadBack() {
        QTemporaryDir folder;
        const QString png = folder.filePath("plot.png");
        const QString svg = folder.filePath("plot.svg");
        QVERIFY(SavePlotImage(Ramp(1000), {-1, 0, 1}, png));
        QVERIFY(SavePlotImage(Ramp(1000), {-1, 0, 1}, svg));
        const QImage image(png);
        QCOMPARE(image.size(), QSize(800, 600));
        QVERIFY(HasPixel(image, Qt::blue));
        QVERIFY(HasPixel(image, QColor(170, 0, 0)));
        QSvgRenderer renderer(svg);
        QVERIFY(renderer.isValid());
        QVERIFY(!SavePlotImage(Ramp(10), {}, folder.filePath("missing/plot.png")));
    }

    // Catches a colour dialog under another title, a chosen colour not used for the curve, and the
    // view buttons not switching the view that is saved.
    void colourAndViewOfTheWindow() {
        Plot_Form form(Ramp(100000), {}, "Logistic(4).txt");
        form.show();
        QString title;
        AnswerModal<QColorDialog>([&title](QColorDialog* dialog) {
            title = dialog->windowTitle();
            dialog->setCurrentColor(QColor(0, 160, 0));
            dialog->accept();
        });
        form.findChild<QPushButton*>("Color_Cbt")->click();
        QCOMPARE(title, "Choose Color");
        QCOMPARE(form.CurveColor(), QColor(0, 160, 0));
        form.findChild<QRadioButton*>("View_Obt_1")->click();
        QCOMPARE(form.View(), PlotView::kSeries);
        QTemporaryDir folder;
        QVERIFY(form.SaveImage(folder.filePath("series.png")));
        QVERIFY(HasPixel(QImage(folder.filePath("series.png")), QColor(0, 160, 0)));
        form.SetThresholds({-0.5F, 0.5F});
        QVERIFY(form.SaveImage(folder.filePath("series.svg")));
        QVERIFY(QSvgRenderer(folder.filePath("series.svg")).isValid());
    }
};

}  // namespace tessarin

QTEST_MAIN(tessarin::PlotFormTest)
#include "plot_form_test.moc"
