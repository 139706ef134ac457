#include "platform/linux/feed_download.h"

#include <QtNetwork/QHostAddress>
#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>

#include <utility>

namespace orvane {

namespace {

constexpr const char* unreachable =
    "The update feed could not be reached. Please check your network connection.";
constexpr const char* tooSlow = "The update feed did not answer in time.";
constexpr const char* tooLarge = "The update feed is larger than it should be.";
constexpr const char* insecure = "The update feed could not be reached over a secure connection.";
constexpr const char* badAddress = "The address of the update feed is not a secure one.";
constexpr const char* tooManyRedirects = "The update feed was redirected too often.";
constexpr const char* badRedirect =
    "The update feed was redirected to an address that is not secure.";
constexpr const char* incomplete = "The connection ended before the update feed was complete.";

QNetworkRequest feedRequest(const QUrl& url, const QString& userAgent) {
  QNetworkRequest request(url);
  request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);
  request.setRawHeader("Accept", "application/rss+xml, application/xml;q=0.9, */*;q=0.1");
  // Anything else would be unpacked on arrival, and a small body could become a huge one.
  request.setRawHeader("Accept-Encoding", "identity");
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::ManualRedirectPolicy);
  for (const auto attribute :
       {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
        QNetworkRequest::AuthenticationReuseAttribute}) {
    request.setAttribute(attribute, QNetworkRequest::Manual);
  }
  return request;
}

std::string statusMessage(int status) {
  return "The server of the update feed answered with error " + std::to_string(status) + ".";
}

const char* networkMessage(QNetworkReply::NetworkError error) {
  switch (error) {
    case QNetworkReply::SslHandshakeFailedError:
      return insecure;
    case QNetworkReply::RemoteHostClosedError:
      return incomplete;
    case QNetworkReply::TimeoutError:
      return tooSlow;
    default:
      return unreachable;
  }
}

}  // namespace

bool isFetchable(const QUrl& url) {
  if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty()) return false;
  if (url.scheme() == QLatin1String("https")) return true;
  return url.scheme() == QLatin1String("http") &&
         (url.host() == QLatin1String("localhost") || QHostAddress(url.host()).isLoopback());
}

FeedDownload::FeedDownload(const QUrl& url, const QString& userAgent, const DownloadLimits& limits,
                           std::function<void(const Result&)> finished)
    : userAgent_(userAgent), limits_(limits), finished_(std::move(finished)) {
  // Looking for the system's proxy can run scripts from the network, in the main thread.
  network_.setProxy(QNetworkProxy::NoProxy);
  deadline_.setSingleShot(true);
  connect(&deadline_, &QTimer::timeout, this, [this] { fail(tooSlow); });
  deadline_.start(limits_.time);
  start_.setSingleShot(true);
  connect(&start_, &QTimer::timeout, this,
          [this, url] { isFetchable(url) ? request(url) : fail(badAddress); });
  start_.start(0);
}

FeedDownload::~FeedDownload() {
  dropReply();
}

void FeedDownload::request(const QUrl& url) {
  reply_ = network_.get(feedRequest(url, userAgent_));
  reply_->setReadBufferSize(limits_.bytes + 1);
  connect(reply_, &QNetworkReply::metaDataChanged, this, [this] { checkAnnouncedSize(); });
  connect(reply_, &QNetworkReply::readyRead, this, [this] { read(); });
  connect(reply_, &QNetworkReply::finished, this, [this] { replyFinished(); });
}

void FeedDownload::checkAnnouncedSize() {
  const qint64 size = reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong();
  if (size > limits_.bytes) fail(tooLarge);
}

void FeedDownload::read() {
  // No more than the limit is ever held, whatever the server announced.
  body_ += reply_->read(limits_.bytes + 1 - body_.size());
  if (body_.size() > limits_.bytes) fail(tooLarge);
}

void FeedDownload::replyFinished() {
  const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  const QUrl target = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
  if (!target.isEmpty()) return follow(reply_->url().resolved(target));
  if (status >= 300) return finish(Failure{statusMessage(status)});
  if (reply_->error() != QNetworkReply::NoError) return fail(networkMessage(reply_->error()));
  read();
  if (finished_) finish(std::exchange(body_, {}));
}

void FeedDownload::follow(const QUrl& target) {
  const bool weaker =
      reply_->url().scheme() == QLatin1String("https") && target.scheme() != QLatin1String("https");
  if (weaker || !isFetchable(target)) return fail(badRedirect);
  if (++redirects_ > limits_.redirects) return fail(tooManyRedirects);
  dropReply();
  body_.clear();
  request(target);
}

void FeedDownload::fail(const char* message) {
  finish(Failure{message});
}

void FeedDownload::finish(const Result& result) {
  if (!finished_) return;
  deadline_.stop();
  dropReply();
  std::exchange(finished_, nullptr)(result);
}

void FeedDownload::dropReply() {
  if (reply_ == nullptr) return;
  QNetworkReply* reply = std::exchange(reply_, nullptr);
  reply->disconnect(this);
  // Not now: it may be the one whose signal is being handled. Its end aborts what is still going
  // on.
  reply->deleteLater();
}

}  // namespace orvane
