// What becomes of an update feed: how it is fetched, and what is read from it.
#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslKey>
#include <QtNetwork/QSslServer>
#include <QtNetwork/QTcpSocket>
#include <tuple>

#include "platform/linux/updates/appcast.h"
#include "platform/linux/updates/linux_software_updater.h"
#include "tests/unit/test_support.h"

namespace orvane {
namespace {

using std::chrono::milliseconds;

QByteArray appcast(const std::string& name) {
  return QByteArray::fromStdString(testData("appcasts/" + name));
}

/// A result in words: "newest 1.9", "offer 1.10.0", "package manager" or the error.
std::string updateWords(const UpdateResult& of) {
  if (const auto* none = std::get_if<UpdateNotNeeded>(&of)) return "newest " + none->newestVersion;
  if (const auto* offer = std::get_if<UpdateOffer>(&of)) return "offer " + offer->version;
  if (const auto* error = std::get_if<UpdateError>(&of)) return error->message;
  return "package manager";
}

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
      while (QTcpSocket* socket = server_.nextPendingConnection())
        QObject::connect(socket, &QTcpSocket::readyRead, &server_, [=, this] { serve(socket); });
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
  for (const char* url : {"http://127.0.0.1:9/", "file:///etc/hostname", "feed"})
    EXPECT_EQ(check(url), "The address of the update feed is not a secure one.") << url;
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
  QTest::qWait(200);
  EXPECT_EQ(cancelled, 0);
}

QByteArray feedWith(const QByteArray& item) {
  return "<rss><channel><item>" + item + "</item></channel></rss>";
}

QByteArray version(const std::string& text) {
  return "<enclosure url='https://a.example/' version='" + QByteArray::fromStdString(text) + "'/>";
}

std::string notesOf(const std::string& description) {
  const QString escaped = QString::fromStdString(description).toHtmlEscaped();
  const UpdateResult result = readAppcast(
      feedWith("<description>" + escaped.toUtf8() + "</description>" + version("2")), "1");
  const auto* offer = std::get_if<UpdateOffer>(&result);
  return offer != nullptr ? offer->notes : updateWords(result);
}

TEST(Appcast, OrdersVersionsAsPeopleReadThem) {
  const std::vector<std::vector<std::string>> ascending = {
      {"0.9", "v0.9", "0.9.0.0", "00.09"},
      {"1.0-alpha", "1.0.0-ALPHA", "1.0~alpha"},
      {"1.0-beta.2", "1.0beta2"},
      {"1.0-beta.10"},
      {"1", "1.0", "1.0.0+build.5", "1.0."},
      {"1.0.1"},
      {"1.9"},
      {"1.10"},
      {"2.0-1"},
      {"2.0"},
      {"20261123.1"}};
  std::vector<std::pair<std::string, std::size_t>> all;
  for (std::size_t rank = 0; rank < ascending.size(); ++rank) {
    for (const auto& text : ascending[rank]) all.emplace_back(text, rank);
  }
  for (const auto& [offered, rank] : all) {
    for (const auto& [running, runningRank] : all)
      EXPECT_EQ(updateWords(readAppcast(feedWith(version(offered)), running)),
                rank > runningRank ? "offer " + offered : "newest " + running);
  }
  for (const char* text : {"", "v", "beta", "1.0 rc", "1/2", "1..2", "2.18446744073709551617"}) {
    EXPECT_EQ(updateWords(readAppcast(feedWith(version(text)), "1")),
              "The update feed names no version.")
        << text;
  }
}

TEST(Appcast, NotesKeepTheWordsAndLoseTheMarkup) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"one\ntwo\n\nthree  four ", "one\ntwo\n\nthree four"},
      {"a\nb <i>c</i>\nd", "a b c d"},
      {"<p>One</p>\n<p>Two<br/>three</p>", "One\nTwo\nthree"},
      {"<UL>\n<LI>first</LI>\n<LI><p>second</p></LI></UL>after", "• first\n• second\nafter"},
      {"5 < 6 && 7 > 3 & &unknown; AT&T", "5 < 6 && 7 > 3 & &unknown; AT&T"},
      {"&lt;b&gt;&amp;lt;&#8364;&#x1F600;&nbsp;&quot;", "<b>&lt;€😀 \""},
      {"a<!-- <p>no</p> -->b<script>x<y>z</script >c<style>", "abc"},
      {"safe\u202Eexe.txt&#7;&#8238;&#0;<img src='x'>\u200B", "safeexe.txt"},
      {"cut <a href='", "cut"},
      {"", ""}};
  for (const auto& [html, text] : cases) EXPECT_EQ(notesOf(html), text) << html;
}

TEST(Appcast, NotesStayBoundedWhateverComes) {
  const auto length = [](const std::string& text) { return QString::fromStdString(text).size(); };
  for (const char* hostile : {"<a", "<!--", "<script>", "&#", "<p>x", "<ul><li>", "<b>x", "😀"}) {
    const QByteArray text = QByteArray(hostile).repeated(8'000);
    EXPECT_LE(length(notesOf(text.toStdString())), 4000) << hostile;
  }
  const std::string most(3998, 'a');
  EXPECT_EQ(notesOf(most + "aa"), most + "aa");
  EXPECT_EQ(notesOf(most + "😀b"), most + "…") << "no half a character";
}

TEST(Appcast, OffersTheNewestItemByVersion) {
  const UpdateResult result = readAppcast(appcast("several.xml"), "1.9");
  ASSERT_EQ(updateWords(result), "offer 1.10");
  const auto& offer = std::get<UpdateOffer>(result);
  EXPECT_EQ(offer.downloadBytes, std::nullopt);
  EXPECT_EQ(offer.downloadPage, "https://orvane.example/notes/1.10.html");
  EXPECT_EQ(offer.notes, "Plus léger.\nPlus rapide & plus sûr.");
}

TEST(Appcast, OffersOnlySecurePages) {
  const std::vector<std::pair<QByteArray, std::string>> cases = {
      {"<link> https://a.example/x </link>", "https://a.example/x"},
      {"<link>http://a.example/</link><enclosure version='2' url='https://b.example/'/>",
       "https://b.example/"},
      {"<link>javascript:alert(1)</link>", ""},
      {"<link>https://orvane.example@evil.example/</link>", ""},
      {"<link>https://a.example/\nx y</link>", ""}};
  for (const auto& [elements, page] : cases) {
    const auto result = readAppcast(feedWith(elements + "<enclosure version='1'/>"), "0.1");
    const auto* offer = std::get_if<UpdateOffer>(&result);
    EXPECT_EQ(offer != nullptr ? offer->downloadPage : "", page) << elements.constData();
  }
}

TEST(Appcast, RefusesBrokenAndHostileDocuments) {
  const QByteArray good = appcast("newer.xml");
  std::vector<QByteArray> documents = {appcast("entity_bomb.xml"),
                                       "<!DOCTYPE rss>" + feedWith(version("9")),
                                       feedWith(QByteArray("<link>").repeated(10'000)),
                                       good + good,
                                       "no markup",
                                       "<html></html>"};
  for (qsizetype cut = 0; cut < good.size() - 8; cut += 7) documents.push_back(good.first(cut));
  for (const QByteArray& document : documents)
    EXPECT_EQ(updateWords(readAppcast(document, "1")), "The update feed could not be understood.")
        << document.left(60).constData();
}

}  // namespace
}  // namespace orvane
