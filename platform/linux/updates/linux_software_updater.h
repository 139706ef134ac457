#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QUrl>

#include <chrono>
#include <functional>
#include <memory>

#include "platform/software_updater.h"

class QSslSocket;

namespace orvane {

struct HttpAnswer;

/// Reads the update feed (see appcast.h), at the user's request only. The feed comes over https
/// straight from its server, without proxy, cookies or credentials; redirects lead to https too.
/// No more than 64 KiB of an answer are read, with its head: QNetworkAccessManager bounds no head,
/// and took a hundred megabytes a second of an endless one.
/// `UpdateNotNeeded` names the running version, also when it is newer than everything in the feed.
class LinuxSoftwareUpdater : public SoftwareUpdater {
 public:
  /// `longestCheck` is from the start to the end of a check, whatever the server sends meanwhile.
  explicit LinuxSoftwareUpdater(UpdateSettings settings,
                                std::chrono::milliseconds longestCheck = std::chrono::seconds(15));
  ~LinuxSoftwareUpdater() override;

  void checkForUpdates(std::function<void(const UpdateResult&)> handler) override;
  void cancel() override;

 private:
  void request(const QUrl& url);
  void receive(const QUrl& url, bool isEnd = false);
  void redirect(const QUrl& from, const HttpAnswer& answer);
  void dropConnection();
  void finish(const UpdateResult& result);

  UpdateSettings settings_;
  std::chrono::milliseconds longestCheck_;
  std::function<void(const UpdateResult&)> handler_;
  std::unique_ptr<QObject> check_;  // receives the signals of the running check
  std::unique_ptr<QSslSocket> socket_;
  QByteArray received_;
  int redirectsLeft_ = 0;
};

}  // namespace orvane
