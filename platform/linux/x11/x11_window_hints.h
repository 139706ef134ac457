#pragma once

class QWindow;

namespace orvane {

/// Keeps an X11 window out of taskbars and pagers. Call it before the window is shown; nothing
/// happens on other platforms.
void skipTaskbar(QWindow& window);

/// Tells the window manager that `extent` device pixels on each side of an X11 window are its
/// shadow
/// (_GTK_FRAME_EXTENTS), which may leave the screen. Call it before the window is shown; nothing
/// happens on other platforms.
void setShadowExtents(QWindow& window, int extent);

/// Lets an X11 window that was minimised once come back as a window when it is shown again:
/// QWindow::showMinimized writes "iconic" to WM_HINTS, and showNormal doesn't take that back. Call
/// it while the window is hidden; nothing happens on other platforms.
void forgetMinimized(QWindow& window);

/// True when translucent windows show what is behind them: on X11 while a compositor runs, always
/// elsewhere.
[[nodiscard]] bool blendsTranslucentWindows();

}  // namespace orvane
