#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

namespace tessarin::testing {

// Answers the next modal dialog of type Dialog as soon as it is open, whether it was opened on
// the test's own call stack (a nested event loop) or for a command on the worker thread.
template <typename Dialog>
void AnswerModal(std::function<void(Dialog*)> answer) {
    auto* poll = new QTimer(qApp);
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, answer = std::move(answer)] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible()) return;
        poll->stop();
        poll->deleteLater();
        answer(dialog);
    });
    poll->start();
}

}  // namespace tessarin::testing
