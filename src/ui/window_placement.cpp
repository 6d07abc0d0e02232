#include "ui/window_placement.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <algorithm>

namespace tessarin {
namespace {

// Room for a title bar and borders while the window manager has not told us its own.
constexpr QMargins kFrameBeforeShown(4, 32, 4, 4);
constexpr int kSmallestCascadeStep = 24;

QMargins FrameOf(const QWidget& window) {
    if (!window.isVisible()) return kFrameBeforeShown;
    const QRect frame = window.frameGeometry();
    const QRect inner = window.geometry();
    return QMargins(inner.left() - frame.left(), inner.top() - frame.top(), frame.right() - inner.right(),
                    frame.bottom() - inner.bottom());
}

QSize Grown(QSize size, const QMargins& margins) {
    return QSize(size.width() + margins.left() + margins.right(), size.height() + margins.top() + margins.bottom());
}

// The windows of the program that a new one should not land on: shown, top-level, no dialogs,
// menus or tool tips.
int OtherWindowsShown(const QWidget& window, const QWidget& main_window) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return static_cast<int>(std::ranges::count_if(windows, [&](const QWidget* other) {
        return other != &window && other != &main_window && other->isVisible() && other->windowType() == Qt::Window &&
               qobject_cast<const QDialog*>(other) == nullptr;
    }));
}

int MenuBottom(const QWidget& main_window) {
    const auto* main = qobject_cast<const QMainWindow*>(&main_window);
    const QWidget* bar = main != nullptr ? main->menuWidget() : nullptr;
    if (bar == nullptr || !main_window.isVisible()) return main_window.frameGeometry().top();
    return bar->mapToGlobal(QPoint(0, bar->height() - 1)).y();
}

}  // namespace

QRect CascadeRect(const CascadeRoom& room, QSize wanted, QSize minimum, int index) {
    const QRect& available = room.available;
    const QSize smallest = Grown(minimum, room.frame).boundedTo(available.size());
    QSize size = Grown(wanted, room.frame)
                     .boundedTo(QSize(available.width() / 2, available.height() * 2 / 3))
                     .expandedTo(smallest);

    // The region the cascade fills: right of the main window, or under its menu bar from the
    // screen's right edge, which leaves the start of the main window's result lines in view.
    QRect region = available;
    const bool beside = available.right() - room.main_frame.right() >= size.width();
    if (beside) {
        region.setLeft(room.main_frame.right() + 1);
    } else if (available.bottom() - room.menu_bottom >= smallest.height()) {
        region.setTop(std::max(available.top(), room.menu_bottom + 1));
        size.setHeight(std::min(size.height(), region.height()));
    }

    // Steps go down the region, and across as far as it is wide enough.
    const int step = std::max(kSmallestCascadeStep, room.frame.top());
    const int steps_across = std::max(0, (region.width() - size.width()) / step);
    const int positions = std::max(1, (region.height() - size.height()) / step + 1);
    const int k = index % positions;
    const int across = std::min(k, steps_across) * step;
    const int left = beside ? region.left() + across
                            : region.right() + 1 - size.width() - std::min(positions - 1, steps_across) * step + across;
    QRect rect(QPoint(left, region.top() + k * step), size);
    // Inside the screen whatever the sizes were.
    rect.moveRight(std::min(rect.right(), available.right()));
    rect.moveBottom(std::min(rect.bottom(), available.bottom()));
    rect.moveLeft(std::max(rect.left(), available.left()));
    rect.moveTop(std::max(rect.top(), available.top()));
    return rect;
}

void ShowBesideMainWindow(QWidget& window, const QWidget& main_window) {
    CascadeRoom room{main_window.screen()->availableGeometry(), main_window.frameGeometry(), MenuBottom(main_window),
                     FrameOf(main_window)};
    const QSize minimum = window.minimumSizeHint().expandedTo(window.minimumSize());
    const QRect frame = CascadeRect(room, window.size(), minimum, OtherWindowsShown(window, main_window));
    window.resize(frame.size().shrunkBy(room.frame));
    window.move(frame.topLeft());
    // The main window keeps the focus, where a key cancels the running command.
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.show();
}

void FitMainWindow(QWidget& main_window, QSize wanted) {
    const QRect available = main_window.screen()->availableGeometry();
    main_window.resize(wanted.boundedTo(available.size().shrunkBy(FrameOf(main_window))));
    main_window.move(available.topLeft());
}

}  // namespace tessarin
