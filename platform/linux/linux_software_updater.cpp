#include "platform/linux/linux_software_updater.h"

#include <QtCore/QTimer>
#include <QtCore/QUrl>

#include <optional>
#include <utility>
#include <variant>

#include "platform/linux/appcast.h"
#include "platform/linux/version_order.h"

namespace orvane {

namespace {

/// What a feed means for the running version.
UpdateResult judgeFeed(const QByteArray& document, const std::string& runningVersion) {
  const std::optional<Appcast> feed = parseAppcast(document);
  if (!feed) return UpdateError{"The update feed could not be understood."};
  if (!feed->newest) return UpdateError{"The update feed names no version."};
  const AppcastItem& newest = *feed->newest;
  if (std::is_lteq(compareVersions(newest.version, runningVersion))) {
    return UpdateNotNeeded{runningVersion};
  }
  return UpdateOffer{newest.version, newest.lengthBytes, newest.notes, newest.page};
}

}  // namespace

LinuxSoftwareUpdater::LinuxSoftwareUpdater(UpdateSettings settings, const DownloadLimits& limits)
    : settings_(std::move(settings)), limits_(limits) {}

LinuxSoftwareUpdater::~LinuxSoftwareUpdater() = default;

void LinuxSoftwareUpdater::checkForUpdates(std::function<void(const UpdateResult&)> handler) {
  cancel();
  handler_ = std::move(handler);
  if (settings_.feedUrl.empty()) {
    auto answer = std::make_unique<QTimer>();
    answer->setSingleShot(true);
    QObject::connect(answer.get(), &QTimer::timeout, answer.get(),
                     [this] { finish(UpdateByPackageManager{}); });
    answer->start(0);
    check_ = std::move(answer);
    return;
  }
  const QUrl url(QString::fromStdString(settings_.feedUrl), QUrl::StrictMode);
  const QString userAgent =
      QStringLiteral("Orvane/") + QString::fromStdString(settings_.runningVersion);
  check_ = std::make_unique<FeedDownload>(
      url, userAgent, limits_, [this](const FeedDownload::Result& result) {
        if (const auto* failure = std::get_if<FeedDownload::Failure>(&result)) {
          finish(UpdateError{failure->message});
        } else {
          finish(judgeFeed(std::get<QByteArray>(result), settings_.runningVersion));
        }
      });
}

void LinuxSoftwareUpdater::cancel() {
  check_.reset();
  handler_ = nullptr;
}

void LinuxSoftwareUpdater::finish(const UpdateResult& result) {
  // Called from inside the check, and the handler may start another or end this updater.
  check_.release()->deleteLater();
  const auto handler = std::exchange(handler_, nullptr);
  if (handler) handler(result);
}

}  // namespace orvane
