#pragma once

#include <QtCore/QByteArray>

#include <optional>

namespace orvane {

/// What a server has answered over HTTP so far.
struct HttpAnswer {
  int status = 0;       ///< 200 to 999
  QByteArray location;  ///< where a redirect leads to, else empty
  QByteArray body;
  bool isWhole = false;      ///< all of the body that was announced has come
  bool isOpenEnded = false;  ///< nothing was announced: the end of the connection is its end
};

/// The answer in the bytes of a connection; a status of 0 when they are no HTTP, none while its
/// head is not complete. Threads: any.
[[nodiscard]] std::optional<HttpAnswer> readHttpAnswer(const QByteArray& received);

}  // namespace orvane
