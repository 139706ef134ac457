#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/feed_download.h"
#include "platform/software_updater.h"

namespace orvane {

/// Looks into the update feed (see appcast.h), at the user's request only. Between checks it holds
/// no network machinery. `UpdateNotNeeded` names the running version, also when it is newer than
/// everything in the feed.
class LinuxSoftwareUpdater : public SoftwareUpdater {
 public:
  explicit LinuxSoftwareUpdater(UpdateSettings settings, const DownloadLimits& limits = {});
  ~LinuxSoftwareUpdater() override;

  void checkForUpdates(std::function<void(const UpdateResult&)> handler) override;
  void cancel() override;

 private:
  void finish(const UpdateResult& result);

  UpdateSettings settings_;
  DownloadLimits limits_;
  std::function<void(const UpdateResult&)> handler_;
  std::unique_ptr<QObject> check_;  // the running check; its end ends everything it started
};

}  // namespace orvane
