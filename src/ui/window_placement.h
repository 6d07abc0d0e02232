#pragma once

#include <QMargins>
#include <QRect>
#include <QSize>

class QWidget;

namespace tessarin {

// Where the main window's text and plot windows go. All sizes are in device-independent pixels,
// as Qt gives the screen's, so a display scale factor changes nothing here.
struct CascadeRoom {
    QRect available;   // the screen's available geometry
    QRect main_frame;  // the main window with its frame
    int menu_bottom;   // the lowest row of the main window's menu bar, in screen coordinates
    QMargins frame;    // what the window manager adds around a window
};

// The frame rectangle of the `index`-th new window (0 for the first): at most half the available
// width and two thirds of its height, no smaller than `minimum` (where the screen allows), beside
// the main window where there is room for it, else below its menu bar. Later windows step down
// and to the right, and start over where the next step would leave the screen.
QRect CascadeRect(const CascadeRoom& room, QSize wanted, QSize minimum, int index);

// Sizes and places a new text or plot window by CascadeRect, counting the windows of the main
// window already shown, and shows it without taking the focus from the main window.
void ShowBesideMainWindow(QWidget& window, const QWidget& main_window);

// The main window at the screen's top left, where it leaves the most room beside it for the
// report windows; `wanted` in size, made smaller where the screen is.
void FitMainWindow(QWidget& main_window, QSize wanted);

}  // namespace tessarin
