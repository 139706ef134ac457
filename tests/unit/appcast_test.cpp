#include "platform/linux/updates/appcast.h"

#include <gtest/gtest.h>

#include "tests/unit/test_files.h"
#include "tests/unit/update_words.h"

namespace orvane {
namespace {

QByteArray feedWith(const QByteArray& item) {
  return "<rss><channel><item>" + item + "</item></channel></rss>";
}

QByteArray version(const std::string& number) {
  return "<enclosure url='https://a.example/' version='" + QByteArray::fromStdString(number) +
         "'/>";
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
    for (const auto& [running, runningRank] : all) {
      EXPECT_EQ(updateWords(readAppcast(feedWith(version(offered)), running)),
                rank > runningRank ? "offer " + offered : "newest " + running);
    }
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
  for (qsizetype length = 0; length < good.size() - 8; length += 7) {
    documents.push_back(good.first(length));
  }
  for (const QByteArray& document : documents) {
    EXPECT_EQ(updateWords(readAppcast(document, "1")), "The update feed could not be understood.")
        << document.left(60).constData();
  }
}

}  // namespace
}  // namespace orvane
