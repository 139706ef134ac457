#include "platform/linux/updates/appcast.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QUrl>
#include <QtCore/QVersionNumber>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>

#include <cstdint>
#include <optional>
#include <utility>

namespace orvane {

namespace {

constexpr qsizetype longestNotes = 4000;
constexpr qsizetype longestMarkup = 16'384;  // reading nested tags takes the square of their number
constexpr qsizetype longestVersion = 64;

QRegularExpression pattern(QLatin1String text) {
  return QRegularExpression(text, QRegularExpression::CaseInsensitiveOption);
}

/// Orders versions: their numbers, and what follows them in a form that sorts as text.
using VersionRank = std::pair<QVersionNumber, QString>;

std::optional<VersionRank> versionRank(const QString& version) {
  static const QRegularExpression form = pattern(QLatin1String(
      R"(^v?(\d{1,9}(?:\.\d{1,9})*)\.?([-~_a-z][-~_.a-z\d]*)?(?:\+[-~_+.a-z\d]*)?$)"));
  static const QRegularExpression piece = pattern(QLatin1String(R"(\d+|[a-z]+)"));
  const QRegularExpressionMatch match = form.match(version);
  if (version.size() > longestVersion || !match.hasMatch()) return std::nullopt;
  QString preRelease;
  for (const auto& found : piece.globalMatch(match.captured(2).toLower())) {
    const QString text = found.captured();
    preRelease += u'.' + (text[0].isDigit() ? text.rightJustified(longestVersion, u'0') : text);
  }
  // The version itself comes after all its pre-releases.
  return VersionRank(QVersionNumber::fromString(match.captured(1)).normalized(),
                     preRelease.isEmpty() ? QStringLiteral("~") : preRelease);
}

/// Controls and marks that change the direction of the text around them, and where pictures were.
bool isDisguise(QChar c) {
  if (c == QChar::LineFeed || c == u'\u200c' || c == u'\u200d') return false;
  return c.category() == QChar::Other_Control || c.category() == QChar::Other_Format ||
         c == QChar::ObjectReplacementCharacter;
}

/// The text of a piece of HTML; a text without tags keeps its own line breaks.
std::string plainText(QString html) {
  static const QRegularExpression tag = pattern(QLatin1String("<[/!?a-z]"));
  const bool isCut = html.size() > longestMarkup;
  html.truncate(longestMarkup);
  if (!html.contains(tag)) {
    html.replace(u'<', QLatin1String("&lt;")).replace(u'\n', QLatin1String("<br>"));
  }
  QTextDocument document;
  QTextCursor(&document).insertFragment(QTextDocumentFragment::fromHtml(html));
  QString text;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block.textList() != nullptr) text += QStringLiteral("\u2022 ");
    text += block.text() + u'\n';
  }
  text.replace(QChar::LineSeparator, u'\n').replace(QChar::Nbsp, u' ').removeIf(isDisguise);
  text = text.trimmed();
  if (isCut || text.size() > longestNotes) {
    text.truncate(longestNotes - 1);
    if (!text.isEmpty() && text.back().isHighSurrogate()) text.chop(1);
    text += u'\u2026';
  }
  return text.toStdString();
}

/// An item of the feed: the text of its elements, and the enclosure's attributes behind an "@".
using Item = QHash<QString, QString>;

QString localName(QStringView name) {
  return name.mid(name.lastIndexOf(u':') + 1).toString();
}

/// The text up to the end of the element that has just started; elements in it may be nested deep.
QString elementText(QXmlStreamReader& xml) {
  QString text;
  for (int depth = 1; depth > 0 && !xml.atEnd();) {
    xml.readNext();
    if (xml.isStartElement()) ++depth;
    if (xml.isEndElement()) --depth;
    if (xml.isCharacters()) text += xml.text();
  }
  return text.trimmed();
}

Item readItem(QXmlStreamReader& xml) {
  Item item;
  while (xml.readNextStartElement()) {
    const QString name = localName(xml.qualifiedName());
    if (name == QLatin1String("enclosure") && !item.contains(QStringLiteral("@version"))) {
      for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        item[u'@' + localName(attribute.qualifiedName())] = attribute.value().trimmed().toString();
      }
    }
    const QString text = elementText(xml);
    if (!text.isEmpty() && !item.contains(name)) item[name] = text;
  }
  return item;
}

/// The item's first address that a browser may be sent to, else empty.
std::string pageOf(const Item& item) {
  for (const char* name : {"link", "releaseNotesLink", "@url"}) {
    const QUrl url(item[QLatin1String(name)], QUrl::StrictMode);
    const bool usable =
        url.scheme() == QLatin1String("https") && !url.host().isEmpty() && url.userInfo().isEmpty();
    if (usable) return url.toEncoded().toStdString();
  }
  return {};
}

}  // namespace

UpdateError updateError(const char* english, const char* note) {
  return {QCoreApplication::translate("Updates", english, note).toStdString()};
}

UpdateResult readAppcast(const QByteArray& feed, const std::string& runningVersion) {
  QXmlStreamReader xml(feed);
  xml.setNamespaceProcessing(false);  // a prefix nobody declared is no reason to refuse a feed
  bool isRss = false;
  std::optional<VersionRank> newestRank;
  Item newest;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isDTD()) break;
    if (!xml.isStartElement()) continue;
    isRss = isRss || xml.name() == QLatin1String("rss");
    if (xml.name() != QLatin1String("item")) continue;
    Item item = readItem(xml);
    const auto rank = versionRank(item[QStringLiteral("@version")]);
    if (!rank || pageOf(item).empty() || (newestRank && *rank <= *newestRank)) continue;
    newestRank = rank;
    newest = std::move(item);
  }
  if (!isRss || !xml.atEnd() || xml.hasError()) {
    return updateError("The update feed could not be understood.");
  }
  if (!newestRank) return updateError("The update feed names no version.");
  if (*newestRank <= versionRank(QString::fromStdString(runningVersion))) {
    return UpdateNotNeeded{runningVersion};
  }
  const std::uint64_t length = newest[QStringLiteral("@length")].toULongLong();
  return UpdateOffer{newest[QStringLiteral("@version")].toStdString(),
                     length > 0 ? std::optional(length) : std::nullopt,
                     plainText(newest[QStringLiteral("description")]), pageOf(newest)};
}

}  // namespace orvane
