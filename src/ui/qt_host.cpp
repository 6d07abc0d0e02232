#include "ui/qt_host.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QThread>

#include "logfile/log_file.h"
#include "ui/file_dialog.h"
#include "ui/main_surface.h"
#include "ui/qt_text.h"
#include "ui/text_form.h"
#include "ui/window_placement.h"

namespace tessarin {

QtHost::QtHost(QWidget& window, MainSurface& surface) : window_(window), surface_(surface) {}

template <typename Action>
void QtHost::Post(Action action) {
    if (QThread::currentThread() == thread()) {
        action();
        return;
    }
    QMetaObject::invokeMethod(this, std::move(action), Qt::QueuedConnection);
}

template <typename Question>
auto QtHost::Ask(Question question) -> decltype(question()) {
    using Answer = decltype(question());
    // While the busy pointer is up, the user still needs the normal one to answer.
    const auto asked = [this, &question] {
        if (in_progress_) QApplication::setOverrideCursor(Qt::ArrowCursor);
        Answer answer = question();
        if (in_progress_) QApplication::restoreOverrideCursor();
        return answer;
    };
    if (QThread::currentThread() == thread()) return asked();
    Answer answer{};
    QMetaObject::invokeMethod(
        this, [&answer, &asked] { answer = asked(); }, Qt::BlockingQueuedConnection);
    return answer;
}

void QtHost::PrintMainLine(const std::string& line) {
    Post([this, text = FromDisplayText(line)] { surface_.AppendLine(text); });
}

void QtHost::ClearMainWindow() {
    Post([this] { surface_.Clear(); });
}

void QtHost::BeginProgress() {
    Post([this] {
        if (in_progress_) return;  // a second start keeps the caption saved by the first
        in_progress_ = true;
        rest_caption_ = window_.windowTitle();
        QApplication::setOverrideCursor(Qt::WaitCursor);
    });
}

void QtHost::ShowProgress(const std::string& caption) {
    Post([this, text = FromDisplayText(caption)] { window_.setWindowTitle(text); });
}

void QtHost::EndProgress() {
    Post([this] {
        if (!in_progress_) return;
        in_progress_ = false;
        QApplication::restoreOverrideCursor();
        window_.setWindowTitle(rest_caption_);
    });
}

void QtHost::ShowMessage(const std::string& text, const std::string& title) {
    Ask([&] {
        QMessageBox::information(&window_, FromDisplayText(title), FromDisplayText(text));
        return true;
    });
}

bool QtHost::AskYesNo(const std::string& question, const std::string& title) {
    return Ask([&] {
        return QMessageBox::question(&window_, FromDisplayText(title), FromDisplayText(question),
                                     QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
    });
}

std::optional<std::string> QtHost::AskInput(const std::string& prompt, const std::string& title,
                                            const std::string& default_answer) {
    return Ask([&]() -> std::optional<std::string> {
        bool ok = false;
        const QString answer = QInputDialog::getText(&window_, FromDisplayText(title), FromDisplayText(prompt),
                                                     QLineEdit::Normal, FromBytes(default_answer), &ok);
        if (!ok) return std::nullopt;
        return ToBytes(answer);
    });
}

void QtHost::ShowFile(const std::filesystem::path& path) {
    Post([this, file = FromPath(path)] {
        QString error;
        TextForm* form = TextForm::ForFile(file, &error);
        if (form == nullptr) {
            QMessageBox::warning(&window_, kMessageTitle, error);
            return;
        }
        ShowBesideMainWindow(*form, window_);
        emit FileShown(file);
    });
}

void QtHost::ShowText(const std::string& caption, const std::string& text) {
    Post([this, caption_text = FromDisplayText(caption), body = FromBytes(text)] {
        ShowBesideMainWindow(*TextForm::ForText(caption_text, body), window_);
    });
}

}  // namespace tessarin
