#pragma once

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QSignalSpy>

#include "support/temp_folder.h"
#include "ui/main_form.h"

namespace tessarin::testing {

// A shown main window over a fresh program folder, as a desktop test's init() starts it.
inline MainForm* StartMainForm(const TempFolder& program_folder) {
    auto* form = new MainForm(program_folder.Folder());
    form->show();
    return form;
}

// Closes every text and plot window, then the main window, as a test's cleanup() ends it.
// Closing (not deleting) is enough: the tests look for visible windows only.
inline void StopMainForm(MainForm* form) {
    form->findChild<QAction*>("View_CloseallTextWindows")->trigger();
    form->findChild<QAction*>("View_CloseallPlotWindows")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // windows that delete themselves
    delete form;
}

// Triggers a menu item and answers whether its command ended within ten seconds.
inline bool TriggerAndWait(MainForm* form, const QString& action_name) {
    QSignalSpy finished(form, &MainForm::CommandFinished);
    form->findChild<QAction*>(action_name)->trigger();
    return finished.wait(10000);
}

}  // namespace tessarin::testing
