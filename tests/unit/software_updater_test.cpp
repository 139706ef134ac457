#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslKey>
#include <QtNetwork/QSslServer>
#include <QtNetwork/QTcpSocket>

#include <tuple>

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

constexpr const char* ok = "HTTP/1.1 200 OK\r\n";

/// A server on this machine. Answers each request by its path, the bare one with `answer`, then
/// closes the connection.
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

  QByteArray answer;
  QByteArray goesOn;  ///< follows the answer again and again
  int pauseMs = 0;    ///< between the times
  int requests = 0;
  int connections = 0;

 private:
  void serve(QTcpSocket* socket) {
    const QByteArray request = socket->readAll();
    if (!request.startsWith("GET ")) return;
    ++requests;
    ++connections;
    QObject::connect(socket, &QTcpSocket::disconnected, &server_, [this] { --connections; });
    socket->write(answerTo(request.split(' ')[1]));
    if (goesOn.isEmpty()) return socket->disconnectFromHost();
    auto* more = new QTimer(socket);
    QObject::connect(more, &QTimer::timeout, socket, [this, socket] {
      if (socket->bytesToWrite() == 0) socket->write(goesOn);
    });
    more->start(pauseMs);
  }

  [[nodiscard]] QByteArray answerTo(const QByteArray& path) const {
    if (path == "/") return answer;
    if (!path.startsWith("/hops/")) return ok + ("\r\n" + appcast(path.mid(1).toStdString()));
    const int left = path.mid(6).toInt();
    return redirectTo(left == 1 ? "/newer.xml" : "/hops/" + QByteArray::number(left - 1));
  }

  QSslServer server_;
};

/// Trusts these certificates alone from now on.
void trust(const QList<QSslCertificate>& certificates) {
  auto configuration = QSslConfiguration::defaultConfiguration();
  configuration.setCaCertificates(certificates);
  QSslConfiguration::setDefaultConfiguration(configuration);
}

/// The result of one check in words.
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
  return words;
}

TEST(SoftwareUpdater, EveryAnswerEndsInOneResult) {
  const std::string insecure = "The update feed was redirected to an address that is not secure.";
  const std::string notUnderstood = "The update feed could not be understood.";
  const std::string cut = "The connection ended before the update feed was complete.";
  const QByteArray feed = appcast("newer.xml");
  const QByteArray size = QByteArray::number(feed.size());
  const QByteArray chunked = ok + QByteArray("TRANSFER-encoding:chunked\r\n\r\n");
  const std::vector<std::pair<QByteArray, std::string>> cases = {
      {redirectTo("same.xml"), "newest 1.9.0"},
      {redirectTo("/hops/2"), "offer 1.10.0"},
      {redirectTo("/hops/3"), "The update feed was redirected too often."},
      {redirectTo("http://127.0.0.1:9/newer.xml"), insecure},
      {redirectTo("file:///etc/hostname"), insecure},
      {redirectTo("https://"), insecure},
      {redirectTo(""), "The server of the update feed answered with error 302."},
      {"HTTP/1.1 404 Not Found\r\n\r\n", "The server of the update feed answered with error 404."},
      {"HTTP/1.1 103 Hints\r\nX: 1\r\n\r\n" + (ok + ("\r\n" + feed)), "offer 1.10.0"},
      {ok + ("Content-Length: " + size + "\r\n\r\n" + feed + "more"), "offer 1.10.0"},
      {chunked + "1;x=y\r\n<\r\n" + QByteArray::number(feed.size() - 1, 16) + "\r\n" + feed.mid(1) +
           "\r\n0\r\n\r\n",
       "offer 1.10.0"},
      {chunked + "6\r\n<rss/>\r\n", cut},
      {chunked + "7fffffffffffffff\r\n<rss/>\r\n", cut},
      {chunked + "-2\r\n<rss/>\r\n0\r\n\r\n", notUnderstood},
      {ok + QByteArray("Content-Length: 9\r\n\r\n<rss/>"), cut},
      {ok + QByteArray("Content-Length: -1\r\n\r\n<rss/>"), notUnderstood},
      {ok + QByteArray("X: "), cut},
      {ok + QByteArray("\r\n<rss>"), notUnderstood},
      {"220 mail.example\r\n\r\n", notUnderstood},
      {"", cut}};
  FeedServer server;
  trust({feedCertificate()});
  for (const auto& [answer, words] : cases) {
    server.answer = answer;
    EXPECT_EQ(check(server.url("")), words) << answer.toStdString();
  }
  server.close();
  EXPECT_EQ(check(server.url("/newer.xml")),
            "The update feed could not be reached. Please check your network connection.");
}

TEST(SoftwareUpdater, AnEndlessAnswerEndsWithItsConnection) {
  const std::string tooLarge = "The update feed is larger than it should be.";
  const QByteArray block(65'536, '1');
  const std::tuple<QByteArray, QByteArray, int, std::string> cases[] = {
      {ok, "X: 1\r\n", 100, "The update feed did not answer in time."},
      {ok, block, 0, tooLarge},
      {ok, QByteArray("X: 1\r\n").repeated(8'192), 0, tooLarge},
      {"", QByteArray("HTTP/1.1 100 Continue\r\n\r\n").repeated(2'048), 0, tooLarge},
      {ok + QByteArray("\r\n"), block, 0, tooLarge}};
  FeedServer server;
  trust({feedCertificate()});
  for (const auto& [answer, goesOn, pauseMs, words] : cases) {
    server.answer = answer;
    server.goesOn = goesOn;
    server.pauseMs = pauseMs;
    EXPECT_EQ(check(server.url(""), milliseconds(pauseMs > 0 ? 400 : 8'000)), words);
    EXPECT_TRUE(waitUntil([&] { return server.connections == 0; })) << words;
  }
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
  FeedServer server;
  server.goesOn = "1";
  server.pauseMs = 100;
  trust({feedCertificate()});
  int cancelled = 0;
  int finished = 0;
  const auto count = [](int& counter) { return [&counter](const UpdateResult&) { ++counter; }; };
  LinuxSoftwareUpdater replaced({"https://127.0.0.1:9/", "1.9"});
  replaced.checkForUpdates(count(cancelled));
  replaced.checkForUpdates(count(finished));
  LinuxSoftwareUpdater stopped({server.url(""), "1.9"});
  stopped.checkForUpdates(count(cancelled));
  ASSERT_TRUE(waitUntil([&] { return server.connections == 1 && finished == 1; }));
  stopped.cancel();
  EXPECT_TRUE(waitUntil([&] { return server.connections == 0; }));
  runEventLoopFor(200);
  EXPECT_EQ(cancelled, 0);
}

}  // namespace
}  // namespace orvane
