#include "ui/main_form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QLabel>
#include <QMenuBar>
#include <QtConcurrent/QtConcurrentRun>
#include <utility>

#include "sequence/sequence_file.h"
#include "ui/file_dialog.h"
#include "ui/main_surface.h"
#include "ui/plot_form.h"
#include "ui/text_form.h"
#include "ui/tree_exports_menu.h"

namespace tessarin {
namespace {

// Closes every visible window of one kind of form.
template <typename Form>
void CloseWindowsOf() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && qobject_cast<Form*>(widget) != nullptr) widget->close();
    }
}

}  // namespace

MainForm::MainForm(const std::string& program_folder, QWidget* parent)
    : QMainWindow(parent),
      surface_(new MainSurface(this)),
      aux_pbx_(new QLabel(this)),
      host_(*this, *surface_),
      session_(host_, program_folder),
      menu_(BuildMainMenu(*menuBar())) {
    setObjectName("MainForm");
    setWindowTitle(kRestCaption);
    setCentralWidget(surface_);
    aux_pbx_->setObjectName("Aux_Pbx");
    aux_pbx_->hide();
    resize(720, 540);
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
    std::optional<CommandParams> params = GatherCommandInputs(this, session_, item, form_settings_);
    if (!params) return;
    params->generate_state = &generate_state_;
    params->tree.result = &last_tree_;
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
    plot->show();
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
    SetCommandsEnabled(true);
    emit CommandFinished();
    if (std::exchange(close_when_finished_, false)) close();
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
        static_cast<QWidget*>(watched)->window() == this) {
        RequestAbort();
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainForm::closeEvent(QCloseEvent* event) {
    if (running_) {
        // Cancel the run first; the window closes once the command has ended.
        RequestAbort();
        close_when_finished_ = true;
        event->ignore();
        return;
    }
    // The program ends with its main window: unload every other window first.
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget != this && widget->isVisible() && !widget->close()) {
            event->ignore();  // a text window kept its unsaved changes
            return;
        }
    }
    event->accept();
}

}  // namespace tessarin
