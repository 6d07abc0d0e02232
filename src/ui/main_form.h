#pragma once

#include <QFutureWatcher>
#include <QList>
#include <QMainWindow>
#include <QStringList>
#include <QTemporaryFile>
#include <functional>
#include <memory>
#include <string>

#include "generate/generate_command.h"
#include "session/command.h"
#include "session/session.h"
#include "ui/command_inputs.h"
#include "ui/main_menu.h"
#include "ui/qt_host.h"

class QLabel;

namespace tessarin {

class MainSurface;
class WrittenFileLine;

// The main window: title image and result lines, the menu of all commands, progress in the
// caption and cancel by any key. Commands run one at a time on a worker thread, so the window
// stays live; meanwhile the items that would start another command are disabled.
class MainForm : public QMainWindow {
    Q_OBJECT

  public:
    static constexpr const char* kRestCaption = "TESSARIN: Grammatical Complexity Analysis for Windows";

    explicit MainForm(const std::filesystem::path& program_folder, QWidget* parent = nullptr);
    ~MainForm() override;

    Session& session() { return session_; }
    QStringList PrintedLines() const;
    bool CommandRunning() const { return running_; }

    // Runs a command flow on the worker thread; ignored while another command runs.
    void StartCommand(CommandFlow flow);

  signals:
    void CommandFinished();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    // A sequence file dropped on the window is displayed as Display Sequence File would.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void ConnectCommands();
    // An item that works on the session: disabled while any command runs.
    void AddCommandItem(QAction* action, std::function<void()> handler);
    // Gathers the item's inputs on the GUI thread, then runs its command on the worker.
    void StartTableCommand(const MenuItem& item);
    void SetCommandsEnabled(bool enabled);
    // Any key, or closing the window during a run.
    void RequestAbort();
    void OnCommandFinished();
    // Asks every other window to close; false when one stays open (unsaved changes kept).
    bool CloseOtherWindows();
    void DisplayDroppedFile(const std::filesystem::path& path);
    // A file named in the status bar: an image by the desktop's viewer, text in a text window.
    void OpenWrittenFile(const QString& path);
    // After a generation: the series in a plot window.
    void ShowGeneratedSeries();
    // After a tree run: its exports offered in the report window.
    void OfferExportsOfLastTree();

    // Menu handlers that work on the GUI thread alone.
    void SaveImageAs();
    void PrintImage();
    void CopyImage();
    void ShowAbout();
    void ShowHelp();
    // The window's drawing surface as an image, copied into Aux_Pbx.
    QPixmap WindowImage();

    MainSurface* surface_;
    QLabel* aux_pbx_;
    WrittenFileLine* written_;
    QtHost host_;
    Session session_;
    QHash<QString, MenuItem> menu_;
    QList<QAction*> command_actions_;
    FormSettings form_settings_;
    GenerateState generate_state_;
    std::optional<DistanceTreeResult> last_tree_;  // filled by a completed tree run, for its exports
    std::shared_ptr<QTemporaryFile> last_table_;   // where the running command may write its table
    const CommandRow* running_row_ = nullptr;
    QFutureWatcher<Outcome> watcher_;
    bool running_ = false;  // from the start of a command until its end has been handled here
    bool close_when_finished_ = false;
};

}  // namespace tessarin
