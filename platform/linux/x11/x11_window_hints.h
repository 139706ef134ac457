#pragma once

class QWindow;

namespace orvane {

/// Keeps an X11 window out of taskbars and pagers. Call it before the window is shown; nothing
/// happens on other platforms.
void skipTaskbar(QWindow& window);

/// True when translucent windows show what is behind them: on X11 while a compositor runs, always
/// elsewhere.
[[nodiscard]] bool blendsTranslucentWindows();

}  // namespace orvane
