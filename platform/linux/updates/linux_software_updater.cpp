#include "platform/linux/updates/linux_software_updater.h"

#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>

#include <string>
#include <utility>

#include "platform/linux/updates/appcast.h"

namespace orvane {

namespace {

// QXmlStreamReader compares each attribute of an element with all the others: for those that fit
// into this it takes 0.15 s.
constexpr qint64 longestFeed = 64LL << 10U;
constexpr int mostRedirects = 3;

QNetworkRequest feedRequest(const QUrl& url, const std::string& version) {
  QNetworkRequest request(url);
  request.setRawHeader("User-Agent", QByteArray::fromStdString("Orvane/" + version));
  // Anything else would be unpacked on arrival, and a small body could become a huge one.
  request.setRawHeader("Accept-Encoding", "identity");
  // Releases are often kept on another host than the page that names them: any https will do.
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(mostRedirects);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  return request;
}

UpdateError errorFor(QNetworkReply::NetworkError error) {
  switch (error) {
    case QNetworkReply::SslHandshakeFailedError:
      return updateError("The update feed could not be reached over a secure connection.");
    case QNetworkReply::RemoteHostClosedError:
      return updateError("The connection ended before the update feed was complete.");
    case QNetworkReply::TooManyRedirectsError:
      return updateError("The update feed was redirected too often.");
    case QNetworkReply::InsecureRedirectError:
    case QNetworkReply::ProtocolUnknownError:
      return updateError("The update feed was redirected to an address that is not secure.");
    default:
      return updateError(
          "The update feed could not be reached. Please check your network connection.");
  }
}

}  // namespace

LinuxSoftwareUpdater::LinuxSoftwareUpdater(UpdateSettings settings,
                                           std::chrono::milliseconds longestCheck)
    : settings_(std::move(settings)), longestCheck_(longestCheck) {}

LinuxSoftwareUpdater::~LinuxSoftwareUpdater() {
  cancel();
}

void LinuxSoftwareUpdater::checkForUpdates(std::function<void(const UpdateResult&)> handler) {
  cancel();
  handler_ = std::move(handler);
  check_ = std::make_unique<QObject>();
  const auto soon = [this](const UpdateResult& result) {
    QTimer::singleShot(0, check_.get(), [this, result] { finish(result); });
  };
  const QUrl url(QString::fromStdString(settings_.feedUrl), QUrl::StrictMode);
  if (settings_.feedUrl.empty()) return soon(UpdateByPackageManager{});
  if (url.scheme() != QLatin1String("https")) {
    return soon(updateError("The address of the update feed is not a secure one."));
  }
  QTimer::singleShot(longestCheck_, check_.get(),
                     [this] { finish(updateError("The update feed did not answer in time.")); });
  download(url);
}

void LinuxSoftwareUpdater::download(const QUrl& url) {
  network_ = std::make_unique<QNetworkAccessManager>();
  // Looking for the system's proxy can run scripts from the network, in the main thread.
  network_->setProxy(QNetworkProxy::NoProxy);
  QNetworkReply* reply = network_->get(feedRequest(url, settings_.runningVersion));
  reply->setReadBufferSize(longestFeed + 1);
  QObject::connect(reply, &QNetworkReply::readyRead, check_.get(), [this, reply] {
    if (reply->bytesAvailable() > longestFeed) {
      finish(updateError("The update feed is larger than it should be."));
    }
  });
  QObject::connect(reply, &QNetworkReply::finished, check_.get(),
                   [this, reply] { finish(resultOf(*reply)); });
}

UpdateResult LinuxSoftwareUpdater::resultOf(QNetworkReply& reply) const {
  const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  const bool failed = reply.error() != QNetworkReply::NoError;
  if (status >= (failed ? 400 : 300)) {
    UpdateError error = updateError("The server of the update feed answered with error %1.",
                                    "of an update check; %1 is a number");
    error.message.replace(error.message.find("%1"), 2, std::to_string(status));
    return error;
  }
  if (failed) return errorFor(reply.error());
  return readAppcast(reply.readAll(), settings_.runningVersion);
}

void LinuxSoftwareUpdater::cancel() {
  handler_ = nullptr;
  check_.reset();
  network_.reset();
}

void LinuxSoftwareUpdater::finish(const UpdateResult& result) {
  check_.reset();
  // Not now: one of its signals is being handled.
  if (network_) network_.release()->deleteLater();
  // The handler may start another check or end this updater.
  const auto handler = std::exchange(handler_, nullptr);
  handler(result);
}

}  // namespace orvane
