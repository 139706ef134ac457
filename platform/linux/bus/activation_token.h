#pragma once

#include <QtCore/QByteArray>

namespace orvane {

/// Keeps the right to take the focus, which another program handed over, for the window that is
/// shown next. One over 1 KiB is none.
inline void keepActivationToken(const QByteArray& token) {
  constexpr qsizetype longest = 1024;
  // QWindow::requestActivate looks for it there.
  if (!token.isEmpty() && token.size() <= longest) qputenv("XDG_ACTIVATION_TOKEN", token);
}

}  // namespace orvane
