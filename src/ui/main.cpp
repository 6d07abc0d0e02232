#include <QApplication>
#include <cstdint>

#include "session/clock.h"
#include "session/program_folder.h"
#include "ui/main_form.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tessarin");
    tessarin::MainForm window(tessarin::DefaultProgramFolder());
    // Milliseconds, so that two starts within one second still draw different numbers.
    window.session().random().Seed(static_cast<std::uint64_t>(tessarin::SecondsSinceMidnight() * 1000.0));
    window.show();
    return QApplication::exec();
}
