#include "platform/linux/appcast.h"

#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/linux/plain_text.h"
#include "platform/linux/version_order.h"

namespace orvane {

namespace {

constexpr qsizetype longestNotes = 4000;
constexpr qsizetype longestAddress = 2048;
// The XML reader compares each attribute of an element with all the others: this many take it less
// than half a second, those that fit into a feed of 1 MiB half a minute.
constexpr qsizetype mostAttributes = 20'000;

/// Whether "=" is the byte of that character in the encoding, so that attributes can be counted
/// before they are read. Empty: the document names none, and is UTF-8 or begins with a mark.
bool showsAttributes(QStringView encoding) {
  static constexpr std::array known = {QLatin1String(""), QLatin1String("utf-8"),
                                       QLatin1String("utf-16"), QLatin1String("us-ascii"),
                                       QLatin1String("iso-8859-1")};
  return std::any_of(known.begin(), known.end(), [encoding](QLatin1String name) {
    return encoding.compare(name, Qt::CaseInsensitive) == 0;
  });
}

/// The name without its prefix.
QStringView localName(QStringView name) {
  return name.mid(name.lastIndexOf(u':') + 1);
}

/// The address when a browser may be sent there, else empty.
std::string pageAddress(QStringView text) {
  const QStringView trimmed = text.trimmed();
  if (trimmed.size() > longestAddress) return {};
  const QUrl url(trimmed.toString(), QUrl::StrictMode);
  const bool usable = url.isValid() && url.scheme() == QLatin1String("https") &&
                      !url.host().isEmpty() && url.userInfo().isEmpty();
  return usable ? url.toEncoded().toStdString() : std::string();
}

std::optional<std::uint64_t> knownLength(QStringView text) {
  bool isNumber = false;
  const qulonglong length = text.trimmed().toULongLong(&isNumber);
  return isNumber && length > 0 ? std::optional<std::uint64_t>(length) : std::nullopt;
}

/// An item as it stands in the document.
struct RawItem {
  QString version;
  QString length;
  QString enclosure;
  QString link;
  QString notesLink;
  QString description;
};

class AppcastReader {
 public:
  explicit AppcastReader(const QByteArray& document) : xml_(document) {
    // A prefix nobody declared is no reason to refuse a feed.
    xml_.setNamespaceProcessing(false);
  }

  std::optional<Appcast> read() {
    while (!xml_.atEnd()) {
      switch (xml_.readNext()) {
        case QXmlStreamReader::StartDocument:
          if (!showsAttributes(xml_.documentEncoding())) return std::nullopt;
          break;
        case QXmlStreamReader::DTD:
          return std::nullopt;
        case QXmlStreamReader::StartElement:
          if (!startElement()) return std::nullopt;
          break;
        case QXmlStreamReader::Characters:
          if (text_ != nullptr) text_->append(xml_.text());
          break;
        case QXmlStreamReader::EndElement:
          endElement();
          break;
        default:
          break;
      }
    }
    if (xml_.hasError() || !sawChannel_) return std::nullopt;
    return finished();
  }

 private:
  // The depth is counted rather than the elements nested in calls: a document can be nested as deep
  // as it is long.
  bool startElement() {
    ++depth_;
    const QStringView name = localName(xml_.qualifiedName());
    if (depth_ == 1) return name == QLatin1String("rss");
    if (depth_ == 2) {
      inChannel_ = name == QLatin1String("channel");
      sawChannel_ = sawChannel_ || inChannel_;
    } else if (depth_ == 3) {
      inItem_ = inChannel_ && name == QLatin1String("item");
    } else if (depth_ == 4 && inItem_) {
      startItemElement(name);
    }
    return true;
  }

  void startItemElement(QStringView name) {
    if (name == QLatin1String("enclosure")) {
      readEnclosure();
    } else if (name == QLatin1String("link")) {
      collect(item_.link);
    } else if (name == QLatin1String("releaseNotesLink")) {
      collect(item_.notesLink);
    } else if (name == QLatin1String("description")) {
      collect(item_.description);
    }
  }

  void readEnclosure() {
    RawItem enclosed;
    for (const QXmlStreamAttribute& attribute : xml_.attributes()) {
      const QStringView name = localName(attribute.qualifiedName());
      if (name == QLatin1String("version")) enclosed.version = attribute.value().toString();
      if (name == QLatin1String("length")) enclosed.length = attribute.value().toString();
      if (name == QLatin1String("url")) enclosed.enclosure = attribute.value().toString();
    }
    if (enclosed.version.isEmpty() || !item_.version.isEmpty()) return;
    item_.version = std::move(enclosed.version);
    item_.length = std::move(enclosed.length);
    item_.enclosure = std::move(enclosed.enclosure);
  }

  /// Takes the text up to the end of the element that has just started; the first one counts.
  void collect(QString& text) {
    if (!text.isEmpty()) return;
    text_ = &text;
    textDepth_ = depth_;
  }

  void endElement() {
    if (depth_ == textDepth_) text_ = nullptr;
    if (depth_ == 3 && inItem_) {
      keepIfNewer(std::exchange(item_, {}));
      inItem_ = false;
    }
    --depth_;
  }

  void keepIfNewer(RawItem item) {
    const std::string version = item.version.trimmed().toStdString();
    if (!isVersion(version)) return;
    if (pageOf(item).empty()) return;
    if (newest_ && std::is_lteq(compareVersions(version, newestVersion_))) return;
    newest_ = std::move(item);
    newestVersion_ = version;
  }

  static std::string pageOf(const RawItem& item) {
    for (const QString& address : {item.link, item.notesLink, item.enclosure}) {
      std::string page = pageAddress(address);
      if (!page.empty()) return page;
    }
    return {};
  }

  [[nodiscard]] Appcast finished() const {
    if (!newest_) return {};
    return {AppcastItem{newestVersion_, knownLength(newest_->length),
                        plainText(newest_->description, longestNotes).toStdString(),
                        pageOf(*newest_)}};
  }

  QXmlStreamReader xml_;
  int depth_ = 0;
  bool sawChannel_ = false;
  bool inChannel_ = false;
  bool inItem_ = false;
  QString* text_ = nullptr;  // where the text being read belongs
  int textDepth_ = 0;
  RawItem item_;
  std::optional<RawItem> newest_;
  std::string newestVersion_;
};

}  // namespace

std::optional<Appcast> parseAppcast(const QByteArray& document) {
  if (document.count('=') > mostAttributes) return std::nullopt;
  return AppcastReader(document).read();
}

}  // namespace orvane
