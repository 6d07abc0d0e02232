#include "ui/main_form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEventLoop>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>
#include <QtConcurrent/QtConcurrentRun>
#include <string_view>
#include <utility>

#include "logfile/log_file.h"
#include "sequence/sequence_file.h"
#include "sequence/test_sequence.h"
#include "ui/file_dialog.h"
#include "ui/main_surface.h"
#include "ui/plot_form.h"
#include "ui/qt_text.h"
#include "ui/table_export_menu.h"
#include "ui/text_form.h"
#include "ui/tree_exports_menu.h"
#include "ui/window_placement.h"
#include "ui/written_file_line.h"

namespace tessarin {
namespace {

// Closes every visible window of one kind of form.
template <typename Form>
void CloseWindowsOf() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && qobject_cast<Form*>(widget) != nullptr) widget->close();
    }
}

// Keys that only modify others, and menu accelerators, leave a run alone, so that a keyboard
// user can still reach Exit through the menu.
bool CancelsRun(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Shift:
        case Qt::Key_Control:
        case Qt::Key_Alt:
        case Qt::Key_AltGr:
        case Qt::Key_Meta:
        case Qt::Key_Super_L:
        case Qt::Key_Super_R:
        case Qt::Key_Hyper_L:
        case Qt::Key_Hyper_R:
        case Qt::Key_CapsLock:
        case Qt::Key_NumLock:
            return false;
        default:
            return !key.modifiers().testFlag(Qt::AltModifier);
    }
}

// The one local file a drag carries, if that is what it carries.
std::optional<QString> DraggedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.front().isLocalFile()) return std::nullopt;
    const QString path = urls.front().toLocalFile();
    if (!QFileInfo(path).isFile()) return std::nullopt;
    return path;
}

}  // namespace

MainForm::MainForm(const std::filesystem::path& program_folder, QWidget* parent)
    : QMainWindow(parent),
      surface_(new MainSurface(this)),
      aux_pbx_(new QLabel(this)),
      written_(new WrittenFileLine(this)),
      host_(*this, *surface_),
      session_(host_, program_folder),
      menu_(BuildMainMenu(*menuBar())) {
    setObjectName("MainForm");
    setWindowTitle(kRestCaption);
    setCentralWidget(surface_);
    aux_pbx_->setObjectName("Aux_Pbx");
    aux_pbx_->hide();
    FitMainWindow(*this, QSize(720, 540));
    statusBar()->addWidget(written_, 1);
    connect(&host_, &QtHost::FileShown, written_, [this](const QString& path) { written_->Show("Report", path); });
    connect(written_, &WrittenFileLine::OpenRequested, this, &MainForm::OpenWrittenFile);
    setAcceptDrops(true);
    ConnectCommands();
    connect(&watcher_, &QFutureWatcher<Outcome>::finished, this, &MainForm::OnCommandFinished);
    // Any key cancels the running command, whichever of the window's widgets has the focus.
    qApp->installEventFilter(this);
}

MainForm::~MainForm() {
    if (!running_) return;
    // Only reached when the program is ended around the close handling below: stop the command
    // and let it finish (it may still need the GUI thread for a last question) before the
    // session it works on goes away.
    RequestAbort();
    disconnect(&watcher_, nullptr, this, nullptr);  // no end-of-command handling on a window going away
    QEventLoop until_finished;
    connect(&watcher_, &QFutureWatcher<Outcome>::finished, &until_finished, &QEventLoop::quit);
    if (!watcher_.isFinished()) until_finished.exec();
}

QStringList MainForm::PrintedLines() const {
    return surface_->Lines();
}

void MainForm::ConnectCommands() {
    // The items the desktop program handles itself, by their control names.
    const QHash<QString, std::function<void()>> own_items{
        {"File_SaveImageAs", [this] { SaveImageAs(); }},
        {"File_Print", [this] { PrintImage(); }},
        {"File_Exit", [this] { close(); }},
        {"Edit_Copy", [this] { CopyImage(); }},
        {"View_CloseallTextWindows", [] { CloseWindowsOf<TextForm>(); }},
        {"View_CloseallPlotWindows", [] { CloseWindowsOf<Plot_Form>(); }},
        {"Help_About", [this] { ShowAbout(); }},
        {"Help_UsingTessarin", [this] { ShowHelp(); }},
    };
    for (auto item = menu_.cbegin(); item != menu_.cend(); ++item) {
        const MenuItem& menu_item = item.value();
        if (menu_item.row->run != nullptr) {
            AddCommandItem(menu_item.action, [this, menu_item] { StartTableCommand(menu_item); });
        } else if (item.key() == "File_SaveImageAs") {
            AddCommandItem(menu_item.action, own_items.value(item.key()));
        } else {
            connect(menu_item.action, &QAction::triggered, this, own_items.value(item.key()));
        }
    }
}

void MainForm::AddCommandItem(QAction* action, std::function<void()> handler) {
    connect(action, &QAction::triggered, this, std::move(handler));
    command_actions_.append(action);
}

void MainForm::StartTableCommand(const MenuItem& item) {
    if (running_) return;
    std::optional<CommandParams> params;
    try {
        params = GatherCommandInputs(this, session_, item, form_settings_);
    } catch (const SequenceFileError& error) {
        // Some questions read the chosen file first (its length, its letters).
        QMessageBox::warning(this, kMessageTitle, FromDisplayText(error.what()));
        return;
    }
    if (!params) return;
    params->generate_state = &generate_state_;
    params->tree.result = &last_tree_;
    // Reports that are tables write their table to a file of this run, which their window offers
    // to save ("Save Table As...") and which goes when that window closes.
    last_table_ = NewTableFile();
    if (last_table_ != nullptr) {
        const std::filesystem::path table = ToPath(last_table_->fileName());
        params->subwords.table.file = params->grammar.table.file = params->surrogate.table.file = table;
    }
    running_row_ = item.row;
    StartCommand([run = item.row->run, params = *params](Session& session) { return run(session, params); });
}

void MainForm::StartCommand(CommandFlow flow) {
    if (running_) return;
    running_ = true;
    SetCommandsEnabled(false);
    // Cleared here, before the worker starts, so that a key pressed right after the start
    // still cancels this run.
    session_.ClearAbort();
    watcher_.setFuture(QtConcurrent::run([this, flow = std::move(flow)] { return ExecuteCommand(session_, flow); }));
}

void MainForm::ShowGeneratedSeries() {
    if (generate_state_.series.values.size() < 2) return;
    auto* plot = new Plot_Form(generate_state_.series, generate_state_.thresholds, "Distribution Function P(x)");
    ShowBesideMainWindow(*plot, *this);
}

void MainForm::OfferExportsOfLastTree() {
    // The report window of the run is the newest one showing a "Similar" log.
    TextForm* report = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* form = qobject_cast<TextForm*>(widget);
        if (form != nullptr && form->isVisible() && form->windowTitle().contains("Similar")) report = form;
    }
    if (report != nullptr && last_tree_) OfferTreeExports(*report, *last_tree_);
}

void MainForm::OnCommandFinished() {
    host_.EndProgress();  // in case the command ended without closing its progress display
    running_ = false;
    const CommandRow* finished = std::exchange(running_row_, nullptr);
    if (finished != nullptr && watcher_.result() == Outcome::kCompleted &&
        (finished->input == CommandInput::kGenerate || finished->input == CommandInput::kDiscretize)) {
        ShowGeneratedSeries();
    }
    if (finished != nullptr && watcher_.result() == Outcome::kCompleted && finished->input == CommandInput::kFolder) {
        OfferExportsOfLastTree();
    }
    if (finished != nullptr && watcher_.result() == Outcome::kCompleted && last_table_ != nullptr &&
        QFileInfo(last_table_->fileName()).size() > 0) {
        if (TextForm* report = WindowShowingFile(FromPath(LogFilePath(session_))))
            OfferTableExport(*report, std::move(last_table_));
    }
    last_table_.reset();
    if (finished != nullptr && watcher_.result() == Outcome::kCompleted &&
        std::string_view(finished->object_name) == "Edit_CreateTestSequence") {
        written_->Show("Test sequence", FromPath(session_.program_folder() / kTestSequenceFileName));
    }
    SetCommandsEnabled(true);
    emit CommandFinished();
    if (std::exchange(close_when_finished_, false)) {
        QApplication::restoreOverrideCursor();
        close();
        return;
    }
    // The result lines end with the time needed or the abort; the report windows stay beside.
    raise();
    activateWindow();
}

void MainForm::DisplayDroppedFile(const std::filesystem::path& path) {
    const MenuItem item = menu_.value("View_DisplaySequenceFile");
    // As if chosen in the file dialog: the next dialog starts in the file's folder.
    session_.sequence().folder = path.parent_path();
    session_.sequence().file_name = path.filename().string();
    RememberFolder(FromPath(path.parent_path()));
    CommandParams params;
    params.input = path;
    running_row_ = item.row;
    StartCommand([run = item.row->run, params](Session& session) { return run(session, params); });
}

void MainForm::OpenWrittenFile(const QString& path) {
    if (QFileInfo(path).suffix().compare("bmp", Qt::CaseInsensitive) == 0) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
        return;
    }
    QString error;
    TextForm* form = TextForm::ForFile(path, &error);
    if (form == nullptr) {
        QMessageBox::warning(this, kMessageTitle, error);
        return;
    }
    ShowBesideMainWindow(*form, *this);
}

void MainForm::dragEnterEvent(QDragEnterEvent* event) {
    if (!running_ && DraggedFile(*event->mimeData())) event->acceptProposedAction();
}

void MainForm::dropEvent(QDropEvent* event) {
    const std::optional<QString> file = DraggedFile(*event->mimeData());
    if (running_ || !file) return;
    event->acceptProposedAction();
    DisplayDroppedFile(ToPath(*file));
}

void MainForm::RequestAbort() {
    session_.RequestAbort();
}

void MainForm::SetCommandsEnabled(bool enabled) {
    for (QAction* action : command_actions_)
        action->setEnabled(enabled);
}

bool MainForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched->isWidgetType() &&
        static_cast<QWidget*>(watched)->window() == this && CancelsRun(*static_cast<QKeyEvent*>(event))) {
        // With the menu bar in keyboard mode (after Alt), the keys walk the menus.
        const auto* bar = qobject_cast<QMenuBar*>(watched);
        if (bar == nullptr || !bar->hasFocus()) RequestAbort();
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainForm::closeEvent(QCloseEvent* event) {
    // The program ends with its main window: unload every other window first.
    if (!CloseOtherWindows()) {
        event->ignore();
        return;
    }
    if (running_) {
        // The window goes at once and the run is cancelled; the program ends when the worker has
        // stopped (the command may still use the session), under the busy pointer until then.
        RequestAbort();
        if (!std::exchange(close_when_finished_, true)) QApplication::setOverrideCursor(Qt::WaitCursor);
        hide();
        event->ignore();
        return;
    }
    event->accept();
}

bool MainForm::CloseOtherWindows() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget != this && widget->isVisible() && !widget->close()) {
            return false;  // a text window kept its unsaved changes
        }
    }
    return true;
}

}  // namespace tessarin
