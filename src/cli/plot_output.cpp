#include "cli/plot_output.h"

#include <stdexcept>

#ifdef TESSARIN_CLI_PLOTS
#include <QGuiApplication>

#include "ui/plot_form.h"
#endif

namespace tessarin {

#ifdef TESSARIN_CLI_PLOTS
void WritePlot(const GenerateState& state, const std::filesystem::path& path) {
    // The labels need fonts, which need a GUI application; the offscreen platform needs no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int argc = 1;
    char name[] = "tessarin-cli";
    char* argv[] = {name, nullptr};
    const QGuiApplication application(argc, argv);
    if (!SavePlotImage(state.series, state.thresholds, QString::fromStdString(path.string()))) {
        throw std::runtime_error("Cannot write the plot " + path.string());
    }
}
#else
void WritePlot(const GenerateState&, const std::filesystem::path& path) {
    throw std::runtime_error("Cannot write the plot " + path.string() +
                             ": this build of the program has no plotting (it was built without Qt)");
}
#endif

}  // namespace tessarin
