#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>

#include "platform/linux/linux_software_updater.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

QByteArray redirectTo(const QByteArray& location) {
  return "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + location + "\r\n\r\n";
}

QByteArray ok(const QByteArray& body, qsizetype announced) {
  return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(announced) + "\r\n\r\n" + body;
}

/// Answers each request by its path, then closes the connection.
class FeedServer {
 public:
  FeedServer() {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::pendingConnectionAvailable, &server_, [this] {
      while (QTcpSocket* socket = server_.nextPendingConnection()) serve(socket);
    });
  }

  [[nodiscard]] std::string url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(server_.serverPort()) + path;
  }
  void close() { server_.close(); }

  int requests = 0;
  qint64 taken = 0;

 private:
  void serve(QTcpSocket* socket) {
    QObject::connect(socket, &QTcpSocket::readyRead, &server_, [this, socket] {
      const QByteArray request = socket->readAll();
      if (!request.startsWith("GET ")) return;
      ++requests;
      const QByteArray path = request.split(' ')[1];
      if (path == "/hang") return;
      QObject::connect(socket, &QTcpSocket::bytesWritten, &server_,
                       [this](qint64 count) { taken += count; });
      socket->write(bytesFor(path));
      socket->disconnectFromHost();
    });
  }

  static QByteArray bytesFor(const QByteArray& path) {
    const QByteArray newer = appcast("newer.xml");
    if (path == "/404") return "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n";
    if (path == "/truncated") return ok(newer.first(300), newer.size());
    if (path == "/unmarked-end") return "HTTP/1.1 200 OK\r\n\r\n" + newer.first(300);
    if (path == "/lying") return ok(newer, 300);
    if (path == "/huge") return "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(32 * 1024 * 1024, ' ');
    if (path == "/announced") return ok(newer, 1024 * 1024 + 1);
    if (path == "/not-xml") return ok("Hello", 5);
    if (path == "/empty-feed") return ok("<rss><channel/></rss>", 21);
    if (path == "/loop") return redirectTo("/loop");
    if (path == "/outward") return redirectTo("http://192.0.2.1/newer.xml");
    if (path == "/file") return redirectTo("file:///etc/hostname");
    if (path.startsWith("/hops/")) {
      const int left = path.mid(6).toInt();
      return redirectTo(left == 1 ? "/newer.xml" : "/hops/" + QByteArray::number(left - 1));
    }
    const QByteArray body = appcast(path.mid(1).toStdString());
    return ok(body, body.size());
  }

  QTcpServer server_;
};

/// The result of one check in words: "newest 1.9", "offer 1.10.0", "package manager" or the error.
std::string check(const std::string& feed,
                  std::chrono::milliseconds time = std::chrono::seconds(8)) {
  DownloadLimits limits;
  limits.time = time;
  LinuxSoftwareUpdater updater({feed, "1.9.0"}, limits);
  std::string words;
  bool returned = false;
  updater.checkForUpdates([&](const UpdateResult& result) {
    EXPECT_TRUE(returned) << "called inside checkForUpdates";
    EXPECT_EQ(words, "") << "called twice";
    if (const auto* none = std::get_if<UpdateNotNeeded>(&result))
      words = "newest " + none->newestVersion;
    if (const auto* offer = std::get_if<UpdateOffer>(&result)) words = "offer " + offer->version;
    if (std::holds_alternative<UpdateByPackageManager>(result)) words = "package manager";
    if (const auto* error = std::get_if<UpdateError>(&result)) words = error->message;
  });
  returned = true;
  EXPECT_TRUE(waitUntil([&] { return !words.empty(); })) << feed;
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  return words;
}

TEST(SoftwareUpdater, EveryFeedEndsInOneResult) {
  const std::string unclear = "The update feed could not be understood.";
  const std::string tooLarge = "The update feed is larger than it should be.";
  const std::string tooOften = "The update feed was redirected too often.";
  const std::string insecure = "The update feed was redirected to an address that is not secure.";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"/newer.xml", "offer 1.10.0"},
      {"/same.xml", "newest 1.9.0"},
      {"/older.xml", "newest 1.9.0"},
      {"/hops/3", "offer 1.10.0"},
      {"/hops/4", tooOften},
      {"/loop", tooOften},
      {"/outward", insecure},
      {"/file", insecure},
      {"/404", "The server of the update feed answered with error 404."},
      {"/truncated", "The connection ended before the update feed was complete."},
      {"/unmarked-end", unclear},
      {"/lying", unclear},
      {"/not-xml", unclear},
      {"/empty-feed", "The update feed names no version."},
      {"/announced", tooLarge},
      {"/huge", tooLarge}};
  FeedServer server;
  for (const auto& [path, words] : cases) {
    EXPECT_EQ(check(server.url(path)), words) << path;
  }
  EXPECT_LT(server.taken, 16 * 1024 * 1024) << "stops reading what is too large";
  EXPECT_EQ(check(server.url("/hang"), std::chrono::milliseconds(300)),
            "The update feed did not answer in time.");
  server.close();
  EXPECT_EQ(check(server.url("/newer.xml")),
            "The update feed could not be reached. Please check your network connection.");
}

TEST(SoftwareUpdater, FetchesFromSecureAddressesOnly) {
  EXPECT_EQ(check(""), "package manager");
  EXPECT_EQ(check("http://192.0.2.1/newer.xml"),
            "The address of the update feed is not a secure one.");
  for (const char* url : {"https://orvane.example/feed", "http://127.9.8.7:81/", "http://[::1]/",
                          "http://localhost/"}) {
    EXPECT_TRUE(isFetchable(QUrl(QString::fromLatin1(url)))) << url;
  }
  for (const char* url : {"http://orvane.example/", "http://localhost.evil.example/",
                          "http://127.0.0.1.example/", "https://user@orvane.example/",
                          "ftp://127.0.0.1/", "file:///etc/hostname", "https:///feed", "feed"}) {
    EXPECT_FALSE(isFetchable(QUrl(QString::fromLatin1(url)))) << url;
  }
}

TEST(SoftwareUpdater, ACancelledCheckStaysSilentAndANewOneReplacesIt) {
  FeedServer server;
  int cancelled = 0;
  int finished = 0;
  const auto count = [](int& counter) { return [&counter](const UpdateResult&) { ++counter; }; };
  LinuxSoftwareUpdater replaced({server.url("/newer.xml"), "1.9"});
  replaced.checkForUpdates(count(cancelled));
  replaced.checkForUpdates(count(finished));
  LinuxSoftwareUpdater stopped({server.url("/hang"), "1.9"});
  stopped.checkForUpdates(count(cancelled));
  ASSERT_TRUE(waitUntil([&] { return server.requests == 2; }));
  stopped.cancel();
  EXPECT_TRUE(waitUntil([&] { return finished == 1; }));
  runEventLoopFor(200);
  EXPECT_EQ(cancelled, 0);
}

}  // namespace
}  // namespace orvane
