#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>

#include <chrono>
#include <functional>
#include <string>
#include <variant>

class QNetworkReply;

namespace orvane {

/// How much one download may take.
struct DownloadLimits {
  qint64 bytes = qint64{1024} * 1024;
  std::chrono::milliseconds time = std::chrono::seconds(15);  ///< from start to end, redirects too
  int redirects = 3;
};

/// Whether a feed may be fetched from `url`: https, or http to this very machine (127.0.0.0/8, ::1
/// or localhost).
[[nodiscard]] bool isFetchable(const QUrl& url);

/// One download of an update feed, straight from its server: no proxy, cookies, cache or
/// credentials. The network machinery lives only as long as this object.
/// Threads: main thread only, and nothing blocks it.
class FeedDownload : public QObject {
 public:
  struct Failure {
    std::string message;  ///< for the user, in plain words
  };
  using Result = std::variant<QByteArray, Failure>;

  /// `finished` runs once, from the event loop, unless the download is destroyed before. The
  /// download must not be destroyed inside it (`deleteLater` may be called).
  FeedDownload(const QUrl& url, const QString& userAgent, const DownloadLimits& limits,
               std::function<void(const Result&)> finished);
  ~FeedDownload() override;

 private:
  void request(const QUrl& url);
  void checkAnnouncedSize();
  void read();
  void replyFinished();
  void follow(const QUrl& target);
  void fail(const char* message);
  void finish(const Result& result);
  void dropReply();

  QString userAgent_;
  DownloadLimits limits_;
  std::function<void(const Result&)> finished_;
  QNetworkAccessManager network_;
  QTimer start_;
  QTimer deadline_;
  QNetworkReply* reply_ = nullptr;  // a child of network_
  QByteArray body_;
  int redirects_ = 0;
};

}  // namespace orvane
