#include "platform/linux/appcast.h"

#include <gtest/gtest.h>

#include "platform/linux/plain_text.h"
#include "platform/linux/version_order.h"
#include "tests/unit/test_files.h"

namespace orvane {
namespace {

QByteArray feedWith(const QByteArray& item) {
  return "<rss><channel><item>" + item + "</item></channel></rss>";
}

QByteArray repeated(const char* text, int times) {
  return QByteArray(text).repeated(times);
}

TEST(VersionOrder, EachIsOlderThanTheNext) {
  const std::vector<std::vector<const char*>> ascending = {
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
      {"2.18446744073709551617"},
      {"2.18446744073709551618"}};
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (const char* left : ascending[i]) {
      EXPECT_TRUE(isVersion(left)) << left;
      for (std::size_t j = 0; j < ascending.size(); ++j) {
        for (const char* right : ascending[j]) {
          EXPECT_TRUE(compareVersions(left, right) == (i <=> j)) << left << " and " << right;
        }
      }
    }
  }
  for (const std::string& text : {std::string(), std::string("v"), std::string("beta"),
                                  std::string("1.0 "), std::string("1/2"), std::string(65, '1')}) {
    EXPECT_FALSE(isVersion(text)) << text;
  }
}

TEST(PlainText, KeepsTheWordsAndLosesTheMarkup) {
  const std::vector<std::pair<const char16_t*, const char16_t*>> cases = {
      {u"one\ntwo\n\n\n\nthree  four ", u"one\ntwo\n\nthree four"},
      {u"a\nb <i>c</i>\nd", u"a b c d"},
      {u"<p>One</p>\n<p>Two<br/>three</p>", u"One\nTwo\nthree"},
      {u"<UL>\n<LI>first</LI>\n<LI><p>second</p></LI></UL>after",
       u"\u2022 first\n\u2022 second\nafter"},
      {u"5 < 6 && 7 > 3 & &unknown; &#xD800; AT&T", u"5 < 6 && 7 > 3 & &unknown; &#xD800; AT&T"},
      {u"&lt;b&gt;&amp;lt;&#8364;&#x1F600;&nbsp;&quot;", u"<b>&lt;\u20ac\U0001F600 \""},
      {u"a<!-- <p>no</p> -->b<script>x<y>z</script >c<style>", u"abc"},
      {u"safe\u202Eexe.txt\u0007&#8238;&#0;", u"safeexe.txt&#0;"},
      {u"cut <a href='", u"cut"},
      {u"", u""}};
  for (const auto& [html, text] : cases) {
    EXPECT_EQ(plainText(html, 1000).toStdString(), QString::fromUtf16(text).toStdString());
  }
}

TEST(PlainText, StaysBoundedWhateverComes) {
  for (const char* hostile : {"<a", "<!--", "<script>", "&#", "<p>", "</"}) {
    const QString text = QString::fromLatin1(repeated(hostile, 250'000));
    EXPECT_LE(plainText(text, 4000).size(), 4000) << hostile;
  }
  EXPECT_EQ(plainText(u"abcd", 4), QStringLiteral("abcd"));
  EXPECT_EQ(plainText(u"ab\U0001F600cd", 4), QStringLiteral("ab\u2026")) << "no half a character";
}

TEST(Appcast, TakesTheNewestItemByVersion) {
  const auto feed = parseAppcast(appcast("several.xml"));
  ASSERT_TRUE(feed && feed->newest);
  EXPECT_EQ(feed->newest->version, "1.10");
  EXPECT_EQ(feed->newest->lengthBytes, std::nullopt);
  EXPECT_EQ(feed->newest->page, "https://orvane.example/notes/1.10.html");
  EXPECT_EQ(feed->newest->notes, "Plus léger.\nPlus rapide & plus sûr.");
}

TEST(Appcast, OffersOnlySecurePages) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"<link> https://a.example/x </link>", "https://a.example/x"},
      {"<link>http://a.example/</link><enclosure version='2' url='https://b.example/'/>",
       "https://b.example/"},
      {"<link>javascript:alert(1)</link>", ""},
      {"<link>https://orvane.example@evil.example/</link>", ""},
      {"<link>https://a.example/\nx y</link>", ""}};
  for (const auto& [elements, page] : cases) {
    const auto feed = parseAppcast(feedWith(elements + QByteArray("<enclosure version='1'/>")));
    ASSERT_TRUE(feed) << elements;
    EXPECT_EQ(feed->newest ? feed->newest->page : "", page) << elements;
  }
}

TEST(Appcast, RefusesBrokenAndHostileDocuments) {
  const QByteArray good = appcast("newer.xml");
  ASSERT_TRUE(parseAppcast(good));
  for (qsizetype length = 0; length < good.size() - 8; length += 7) {
    EXPECT_FALSE(parseAppcast(good.first(length))) << length;
  }
  for (const QByteArray& document :
       {appcast("entity_bomb.xml"),
        "<!DOCTYPE rss>" + feedWith("<enclosure version='1' url='https://a.example/'/>"),
        QByteArray("no markup"), QByteArray("<html><channel/></html>"),
        QByteArray("<rss version='2.0'/>"), good + good, feedWith("<a b='1' b='2'/>"),
        feedWith("\xff\xfe\x01"), repeated("<rss>", 200'000), QByteArray(1000, '\0')}) {
    EXPECT_FALSE(parseAppcast(document)) << document.left(60).constData();
  }
  // A parser that compares each attribute with all before it would stand still here.
  QByteArray flood = "<enclosure version='1' url='https://a.example/'";
  for (int i = 0; i < 90'000; ++i) flood += " a" + QByteArray::number(i) + "=''";
  EXPECT_FALSE(parseAppcast(feedWith(flood + "/>")));
  // Here "=" can be written without its byte.
  EXPECT_FALSE(parseAppcast("<?xml version='1.0' encoding='UTF-7'?>" +
                            feedWith("<enclosure version='1' url='https://a.example/'/>")));
}

}  // namespace
}  // namespace orvane
