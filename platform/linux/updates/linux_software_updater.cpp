#include "platform/linux/updates/linux_software_updater.h"

#include <QtCore/QTimer>
#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QSslSocket>

#include <string>
#include <utility>

#include "platform/linux/updates/appcast.h"
#include "platform/linux/updates/http_answer.h"

namespace orvane {

namespace {

// Of an answer with its head. QXmlStreamReader compares each attribute of an element with all the
// others: for those that fit into this it takes 0.15 s.
constexpr qint64 longestAnswer = 64LL << 10U;
constexpr int mostRedirects = 3;
constexpr int httpsPort = 443;

bool isSecure(const QUrl& url) {
  return url.scheme() == QLatin1String("https") && !url.host().isEmpty();
}

QByteArray requestFor(const QUrl& url, const std::string& version) {
  const auto place = QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment;
  const QByteArray path = url.toEncoded(place);
  return "GET " + (path.startsWith('/') ? path : '/' + path) + " HTTP/1.1\r\nHost: " +
         url.authority(QUrl::FullyEncoded | QUrl::RemoveUserInfo).toLatin1() +
         "\r\nUser-Agent: Orvane/" + QByteArray::fromStdString(version) +
         "\r\nAccept-Encoding: identity\r\nConnection: close\r\n\r\n";
}

UpdateError errorFor(QAbstractSocket::SocketError error) {
  if (error == QAbstractSocket::SslHandshakeFailedError) {
    return updateError("The update feed could not be reached over a secure connection.");
  }
  return updateError("The update feed could not be reached. Please check your network connection.");
}

UpdateError errorFor(int status) {
  UpdateError error = updateError("The server of the update feed answered with error %1.",
                                  "of an update check; %1 is a number");
  error.message.replace(error.message.find("%1"), 2, std::to_string(status));
  return error;
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
  if (!isSecure(url)) {
    return soon(updateError("The address of the update feed is not a secure one."));
  }
  QTimer::singleShot(longestCheck_, check_.get(),
                     [this] { finish(updateError("The update feed did not answer in time.")); });
  redirectsLeft_ = mostRedirects;
  request(url);
}

void LinuxSoftwareUpdater::request(const QUrl& url) {
  dropConnection();
  socket_ = std::make_unique<QSslSocket>();
  // Looking for the system's proxy can run scripts from the network, in the main thread.
  socket_->setProxy(QNetworkProxy::NoProxy);
  socket_->setReadBufferSize(longestAnswer);
  const auto on = [this](auto signal, auto handle) {
    QObject::connect(socket_.get(), signal, check_.get(), std::move(handle));
  };
  on(&QSslSocket::encrypted,
     [this, url] { socket_->write(requestFor(url, settings_.runningVersion)); });
  on(&QSslSocket::readyRead, [this, url] { receive(url); });
  on(&QSslSocket::errorOccurred, [this, url](QAbstractSocket::SocketError error) {
    if (error != QAbstractSocket::RemoteHostClosedError) return finish(errorFor(error));
    receive(url, true);
  });
  socket_->connectToHostEncrypted(url.host(), static_cast<quint16>(url.port(httpsPort)));
}

void LinuxSoftwareUpdater::receive(const QUrl& url, bool isEnd) {
  received_ += socket_->readAll();
  const auto answer = readHttpAnswer(received_);
  if (answer && answer->status == 0) {
    return finish(updateError("The update feed could not be understood."));
  }
  if (answer && answer->status >= 300) return redirect(url, *answer);
  if (answer && (answer->isWhole || (isEnd && answer->isOpenEnded))) {
    return finish(readAppcast(answer->body, settings_.runningVersion));
  }
  if (received_.size() >= longestAnswer) {
    return finish(updateError("The update feed is larger than it should be."));
  }
  if (isEnd) {
    finish(updateError("The connection ended before the update feed was complete."));
  }
}

void LinuxSoftwareUpdater::redirect(const QUrl& from, const HttpAnswer& answer) {
  if (answer.status >= 400 || answer.location.isEmpty()) return finish(errorFor(answer.status));
  if (--redirectsLeft_ < 0) {
    return finish(updateError("The update feed was redirected too often."));
  }
  // Releases are often kept on another host than the page that names them: any https will do.
  const QUrl to = from.resolved(QUrl::fromEncoded(answer.location, QUrl::StrictMode));
  if (isSecure(to)) return request(to);
  finish(updateError("The update feed was redirected to an address that is not secure."));
}

void LinuxSoftwareUpdater::dropConnection() {
  received_.clear();
  if (!socket_) return;
  QObject::disconnect(socket_.get(), nullptr, check_.get(), nullptr);
  // Not now: one of its signals may be being handled.
  socket_.release()->deleteLater();
}

void LinuxSoftwareUpdater::cancel() {
  handler_ = nullptr;
  check_.reset();
  socket_.reset();
  received_.clear();
}

void LinuxSoftwareUpdater::finish(const UpdateResult& result) {
  dropConnection();
  check_.reset();
  // The handler may start another check or end this updater.
  const auto handler = std::exchange(handler_, nullptr);
  handler(result);
}

}  // namespace orvane
