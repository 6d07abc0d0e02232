#pragma once

#include <QObject>
#include <QString>

#include "session/host.h"

class QWidget;

namespace tessarin {

class MainSurface;

// The desktop program's Host. Commands run on a worker thread, so every call is carried over to
// the GUI thread: lines and progress are queued (they arrive in the order they were made),
// dialogs and questions block the worker until the user has answered. Called on the GUI thread
// itself, it acts at once.
class QtHost : public QObject, public Host {
    Q_OBJECT

  public:
    // `window` gives the caption, the dialogs' parent and the busy pointer's scope.
    QtHost(QWidget& window, MainSurface& surface);

    void PrintMainLine(const std::string& line) override;
    void ClearMainWindow() override;
    void BeginProgress() override;
    void ShowProgress(const std::string& caption) override;
    void EndProgress() override;
    void ShowMessage(const std::string& text, const std::string& title) override;
    bool AskYesNo(const std::string& question, const std::string& title) override;
    std::optional<std::string> AskInput(const std::string& prompt, const std::string& title,
                                        const std::string& default_answer) override;
    void ShowFile(const std::filesystem::path& path) override;
    void ShowText(const std::string& caption, const std::string& text) override;

  signals:
    // A report (or another file a command wrote) is shown in a text window.
    void FileShown(const QString& path);

  private:
    template <typename Action>
    void Post(Action action);
    template <typename Question>
    auto Ask(Question question) -> decltype(question());

    QWidget& window_;
    MainSurface& surface_;
    bool in_progress_ = false;  // GUI thread only
    QString rest_caption_;
};

}  // namespace tessarin
