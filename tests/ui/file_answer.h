#pragma once

#include <QFileDialog>
#include <functional>
#include <string>

#include "modal_answer.h"

namespace tessarin::testing {

// Answers the next file dialog with `path`, then arms `next` for the dialog that follows it.
inline void ChooseFileThen(const std::string& path, std::function<void()> next = {}) {
    AnswerModal<QFileDialog>([path, next](QFileDialog* dialog) {
        // selectFile() leaves a focused name box alone, and when it gains focus depends on timing.
        if (QWidget* focused = dialog->focusWidget()) focused->clearFocus();
        dialog->selectFile(QString::fromStdString(path));
        static_cast<QDialog*>(dialog)->accept();  // QFileDialog hides accept()
        if (next) next();
    });
}

}  // namespace tessarin::testing
