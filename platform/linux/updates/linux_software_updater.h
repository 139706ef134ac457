#pragma once

#include <QtCore/QObject>

#include <chrono>
#include <functional>
#include <memory>

#include "platform/software_updater.h"

class QNetworkAccessManager;
class QNetworkReply;
class QUrl;

namespace orvane {

/// Reads the update feed (see appcast.h), at the user's request only. The feed comes over https
/// straight from its server, without proxy, cookies or credentials; redirects lead to https too.
/// Between checks there is no network machinery, nor its thread.
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
  void download(const QUrl& url);
  [[nodiscard]] UpdateResult resultOf(QNetworkReply& reply) const;
  void finish(const UpdateResult& result);

  UpdateSettings settings_;
  std::chrono::milliseconds longestCheck_;
  std::function<void(const UpdateResult&)> handler_;
  std::unique_ptr<QObject> check_;  // receives the signals of the running check
  std::unique_ptr<QNetworkAccessManager> network_;
};

}  // namespace orvane
