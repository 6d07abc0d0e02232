#include "ui/main_form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QLabel>
#include <QMenuBar>
#include <QtConcurrent/QtConcurrentRun>
#include <utility>

#include "grammar/grammar_command.h"
#include "sequence/display_sequence.h"
#include "sequence/test_sequence.h"
#include "subwords/block_entropies.h"
#include "subwords/exceptional_words.h"
#include "subwords/local_uncertainties.h"
#include "subwords/references.h"
#include "subwords/repeated_words.h"
#include "ui/grammar_form.h"
#include "ui/main_surface.h"

namespace tessarin {
namespace {

// Windows of the named form class (the class name without namespace, as the form is called).
bool IsForm(const QWidget* widget, const char* form_name) {
    for (const QMetaObject* meta = widget->metaObject(); meta != nullptr; meta = meta->superClass()) {
        const QString class_name = meta->className();
        if (class_name.section("::", -1) == form_name) return true;
    }
    return false;
}

void CloseWindowsOfForm(const char* form_name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && IsForm(widget, form_name)) widget->close();
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
    AddCommand(menu_.display_sequence_file, DisplaySequenceFile);
    AddCommand(menu_.create_test_sequence, CreateTestSequence);
    AddCommandItem(menu_.save_image_as, [this] { SaveImageAs(); });
    for (const int positions_flag : {0, 1}) {
        AddCommand(menu_.repeated_words[positions_flag],
                   [positions_flag](Session& session) { return RunRepeatedWords(session, positions_flag); });
        AddCommand(menu_.exceptional_words[positions_flag],
                   [positions_flag](Session& session) { return RunExceptionalWords(session, positions_flag); });
    }
    AddCommand(menu_.subword_entropies, RunBlockEntropies);
    AddCommand(menu_.conditional_uncertainties, RunLocalUncertainties);
    AddCommandItem(menu_.grammar_complexity, [this] { StartGrammarComplexity(); });
    AddCommand(menu_.references, RunReferences);
    connect(menu_.print, &QAction::triggered, this, &MainForm::PrintImage);
    connect(menu_.copy, &QAction::triggered, this, &MainForm::CopyImage);
    connect(menu_.exit, &QAction::triggered, this, &MainForm::close);
    connect(menu_.close_text_windows, &QAction::triggered, this, [] { CloseWindowsOfForm("TextForm"); });
    connect(menu_.close_plot_windows, &QAction::triggered, this, [] { CloseWindowsOfForm("Plot_Form"); });
    connect(menu_.about, &QAction::triggered, this, &MainForm::ShowAbout);
    connect(menu_.using_tessarin, &QAction::triggered, this, &MainForm::ShowHelp);
}

void MainForm::AddCommandItem(QAction* action, std::function<void()> handler) {
    connect(action, &QAction::triggered, this, std::move(handler));
    command_actions_.append(action);
}

void MainForm::AddCommand(QAction* action, CommandFlow flow) {
    AddCommandItem(action, [this, flow = std::move(flow)] { StartCommand(flow); });
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

void MainForm::StartGrammarComplexity() {
    GrammarSettings& settings = session_.grammar_settings();
    Grammar_Form form(this);
    if (!form.Settings(settings.method, settings.options)) return;
    StartCommand([method = settings.method, options = settings.options](Session& session) {
        return RunGrammarComplexity(session, method, options);
    });
}

void MainForm::OnCommandFinished() {
    host_.EndProgress();  // in case the command ended without closing its progress display
    running_ = false;
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
