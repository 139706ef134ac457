#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslKey>
#include <QtNetwork/QSslServer>
#include <QtNetwork/QTcpSocket>

#include <filesystem>

#include "platform/linux/updates/linux_software_updater.h"
#include "tests/unit/test_bus.h"
#include "tests/unit/update_words.h"

namespace orvane {
namespace {

using std::chrono::milliseconds;

QSslCertificate feedCertificate() {
  return QSslCertificate::fromPath(QStringLiteral(ORVANE_FEED_CERTIFICATE)).value(0);
}

QByteArray redirectTo(const QByteArray& location) {
  return "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + location + "\r\n\r\n";
}

QByteArray answerTo(const QByteArray& path) {
  if (path == "/404") return "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n";
  if (path == "/truncated") return "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n<rss>";
  if (path == "/unmarked-end") return "HTTP/1.1 200 OK\r\n\r\n<rss>";
  if (path == "/weaker") return redirectTo("http://127.0.0.1:9/newer.xml");
  if (path == "/file") return redirectTo("file:///etc/hostname");
  if (path.startsWith("/hops/")) {
    const int left = path.mid(6).toInt();
    return redirectTo(left == 1 ? "/newer.xml" : "/hops/" + QByteArray::number(left - 1));
  }
  return "HTTP/1.1 200 OK\r\n\r\n" + appcast(path.mid(1).toStdString());
}

/// A server on this machine. Answers each request by its path, then closes the connection.
class FeedServer {
 public:
  FeedServer() {
    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(feedCertificate());
    const std::string key = readFile(ORVANE_FEED_CERTIFICATE);
    configuration.setPrivateKey(QSslKey(QByteArray::fromStdString(key), QSsl::Rsa));
    server_.setSslConfiguration(configuration);
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::pendingConnectionAvailable, &server_, [this] {
      while (QTcpSocket* socket = server_.nextPendingConnection()) {
        QObject::connect(socket, &QTcpSocket::readyRead, &server_, [=, this] { serve(socket); });
      }
    });
  }

  [[nodiscard]] std::string url(const std::string& path) const {
    return "https://127.0.0.1:" + std::to_string(server_.serverPort()) + path;
  }
  void close() { server_.close(); }

  int requests = 0;

 private:
  void serve(QTcpSocket* socket) {
    const QByteArray request = socket->readAll();
    if (!request.startsWith("GET ")) return;
    ++requests;
    const QByteArray path = request.split(' ')[1];
    socket->write(answerTo(path));
    if (!path.startsWith("/endless-")) return socket->disconnectFromHost();
    const bool isSlow = path == "/endless-drip";
    auto* more = new QTimer(socket);
    QObject::connect(more, &QTimer::timeout, socket, [socket, isSlow] {
      if (socket->bytesToWrite() == 0) socket->write(QByteArray(isSlow ? 1 : 65'536, '1'));
    });
    more->start(isSlow ? 100 : 0);
  }

  QSslServer server_;
};

/// Trusts these certificates alone from now on.
void trust(const QList<QSslCertificate>& certificates) {
  auto configuration = QSslConfiguration::defaultConfiguration();
  configuration.setCaCertificates(certificates);
  QSslConfiguration::setDefaultConfiguration(configuration);
}

bool networkThreadEnded() {
  for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
    if (readFile(thread.path() / "comm").starts_with("QNetworkAccess")) return false;
  }
  return true;
}

/// The result of one check in words. Its thread ends with it.
std::string check(const std::string& feed, milliseconds longest = std::chrono::seconds(8)) {
  LinuxSoftwareUpdater updater({feed, "1.9.0"}, longest);
  std::string words;
  bool returned = false;
  updater.checkForUpdates([&](const UpdateResult& result) {
    EXPECT_TRUE(returned) << "called inside checkForUpdates";
    EXPECT_EQ(words, "") << "called twice";
    words = updateWords(result);
  });
  returned = true;
  EXPECT_TRUE(waitUntil([&] { return !words.empty(); })) << feed;
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(waitUntil(networkThreadEnded)) << feed;
  return words;
}

TEST(SoftwareUpdater, EveryFeedEndsInOneResult) {
  const std::string insecure = "The update feed was redirected to an address that is not secure.";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"/newer.xml", "offer 1.10.0"},
      {"/same.xml", "newest 1.9.0"},
      {"/hops/3", "offer 1.10.0"},
      {"/hops/4", "The update feed was redirected too often."},
      {"/weaker", insecure},
      {"/file", insecure},
      {"/404", "The server of the update feed answered with error 404."},
      {"/truncated", "The connection ended before the update feed was complete."},
      {"/unmarked-end", "The update feed could not be understood."},
      {"/endless-body", "The update feed is larger than it should be."}};
  FeedServer server;
  trust({feedCertificate()});
  for (const auto& [path, words] : cases) EXPECT_EQ(check(server.url(path)), words) << path;
  EXPECT_EQ(check(server.url("/endless-drip"), milliseconds(400)),
            "The update feed did not answer in time.");
  server.close();
  EXPECT_EQ(check(server.url("/newer.xml")),
            "The update feed could not be reached. Please check your network connection.");
}

TEST(SoftwareUpdater, FetchesOverSecureConnectionsOnly) {
  EXPECT_EQ(check(""), "package manager");
  for (const char* url : {"http://127.0.0.1:9/", "file:///etc/hostname", "feed"}) {
    EXPECT_EQ(check(url), "The address of the update feed is not a secure one.") << url;
  }
  const FeedServer server;
  trust({});
  EXPECT_EQ(check(server.url("/newer.xml")),
            "The update feed could not be reached over a secure connection.");
  EXPECT_EQ(server.requests, 0) << "nobody vouches for its certificate";
}

TEST(SoftwareUpdater, ACancelledCheckStaysSilentAndANewOneReplacesIt) {
  const FeedServer server;
  trust({feedCertificate()});
  int cancelled = 0;
  int finished = 0;
  const auto count = [](int& counter) { return [&counter](const UpdateResult&) { ++counter; }; };
  LinuxSoftwareUpdater replaced({server.url("/newer.xml"), "1.9"});
  replaced.checkForUpdates(count(cancelled));
  replaced.checkForUpdates(count(finished));
  LinuxSoftwareUpdater stopped({server.url("/endless-drip"), "1.9"});
  stopped.checkForUpdates(count(cancelled));
  ASSERT_TRUE(waitUntil([&] { return server.requests == 2 && finished == 1; }));
  stopped.cancel();
  EXPECT_TRUE(waitUntil(networkThreadEnded));
  runEventLoopFor(200);
  EXPECT_EQ(cancelled, 0);
}

}  // namespace
}  // namespace orvane
