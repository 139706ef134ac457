#include "platform/linux/plain_text.h"

#include <QtCore/QLatin1String>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace orvane {

namespace {

struct Entity {
  QLatin1String name;
  char16_t character = 0;
};

constexpr std::array entities = {
    Entity{QLatin1String("amp"), u'&'},        Entity{QLatin1String("lt"), u'<'},
    Entity{QLatin1String("gt"), u'>'},         Entity{QLatin1String("quot"), u'"'},
    Entity{QLatin1String("apos"), u'\''},      Entity{QLatin1String("nbsp"), u'\u00a0'},
    Entity{QLatin1String("copy"), u'\u00a9'},  Entity{QLatin1String("reg"), u'\u00ae'},
    Entity{QLatin1String("times"), u'\u00d7'}, Entity{QLatin1String("middot"), u'\u00b7'},
    Entity{QLatin1String("ndash"), u'\u2013'}, Entity{QLatin1String("mdash"), u'\u2014'},
    Entity{QLatin1String("lsquo"), u'\u2018'}, Entity{QLatin1String("rsquo"), u'\u2019'},
    Entity{QLatin1String("ldquo"), u'\u201c'}, Entity{QLatin1String("rdquo"), u'\u201d'},
    Entity{QLatin1String("bull"), u'\u2022'},  Entity{QLatin1String("hellip"), u'\u2026'},
    Entity{QLatin1String("trade"), u'\u2122'}, Entity{QLatin1String("rarr"), u'\u2192'},
};

constexpr std::array blockTags = {
    QLatin1String("address"), QLatin1String("article"), QLatin1String("blockquote"),
    QLatin1String("dd"),      QLatin1String("div"),     QLatin1String("dl"),
    QLatin1String("dt"),      QLatin1String("footer"),  QLatin1String("h1"),
    QLatin1String("h2"),      QLatin1String("h3"),      QLatin1String("h4"),
    QLatin1String("h5"),      QLatin1String("h6"),      QLatin1String("header"),
    QLatin1String("hr"),      QLatin1String("ol"),      QLatin1String("p"),
    QLatin1String("pre"),     QLatin1String("section"), QLatin1String("table"),
    QLatin1String("tr"),      QLatin1String("ul"),
};

constexpr std::array droppedTags = {QLatin1String("script"), QLatin1String("style"),
                                    QLatin1String("head"), QLatin1String("title")};

template <std::size_t N>
bool contains(const std::array<QLatin1String, N>& names, QStringView name) {
  return std::any_of(names.begin(), names.end(), [name](QLatin1String known) {
    return name.compare(known, Qt::CaseInsensitive) == 0;
  });
}

bool isAsciiLetter(QChar c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// Controls, and the marks that change the direction of the text around them.
bool isDisguise(char32_t c) {
  return c < 0x20 || (c >= 0x7f && c <= 0x9f) || c == 0x061c || c == 0x200b || c == 0x200e ||
         c == 0x200f || (c >= 0x2028 && c <= 0x202e) || (c >= 0x2060 && c <= 0x206f) || c == 0xfeff;
}

std::optional<char32_t> decodedEntity(QStringView name) {
  if (name.startsWith(u'#')) {
    const bool hexadecimal = name.size() > 1 && (name[1] == u'x' || name[1] == u'X');
    bool isNumber = false;
    const uint code = name.mid(hexadecimal ? 2 : 1).toUInt(&isNumber, hexadecimal ? 16 : 10);
    const bool isCharacter =
        isNumber && code != 0 && code <= QChar::LastValidCodePoint && !QChar::isSurrogate(code);
    return isCharacter ? std::optional<char32_t>(code) : std::nullopt;
  }
  const auto* found = std::find_if(entities.begin(), entities.end(),
                                   [name](const Entity& entity) { return name == entity.name; });
  return found == entities.end() ? std::nullopt : std::optional<char32_t>(found->character);
}

/// Reads HTML once from front to back.
class HtmlReader {
 public:
  HtmlReader(QStringView html, qsizetype maximumLength)
      : html_(html), maximumLength_(maximumLength) {}

  QString read() {
    // One character beyond the limit tells a text that was cut from one that just fits.
    while (at_ < html_.size() && text_.size() <= maximumLength_) step();
    while (!text_.isEmpty() && text_.back().isSpace()) text_.chop(1);
    if (text_.size() > maximumLength_) cut();
    return text_;
  }

 private:
  void step() {
    const QChar c = html_[at_];
    if (c == u'<' && startsTag()) {
      readTag();
    } else if (c == u'&') {
      readEntity();
    } else {
      ++at_;
      if (c == u'\n' && !sawTag_) {
        breakLine();
      } else if (c.isSpace() && c != QChar::Nbsp) {
        spacePending_ = true;
      } else {
        appendUnit(c);
      }
    }
  }

  [[nodiscard]] bool startsTag() const {
    if (at_ + 1 >= html_.size()) return false;
    const QChar next = html_[at_ + 1];
    return isAsciiLetter(next) || next == u'/' || next == u'!' || next == u'?';
  }

  void readTag() {
    becomeMarkup();
    if (html_.mid(at_).startsWith(u"<!--")) return skipPast(u"-->", at_ + 4);
    const bool closing = html_[at_ + 1] == u'/';
    const qsizetype nameStart = at_ + (closing ? 2 : 1);
    qsizetype nameEnd = nameStart;
    while (nameEnd < html_.size() && html_[nameEnd].isLetterOrNumber()) ++nameEnd;
    const QStringView name = html_.sliced(nameStart, nameEnd - nameStart);
    skipPast(u">", nameEnd);
    if (contains(droppedTags, name)) {
      if (!closing) skipContent(name);
    } else if (name.compare(QLatin1String("br"), Qt::CaseInsensitive) == 0) {
      breakLine();
    } else if (name.compare(QLatin1String("li"), Qt::CaseInsensitive) == 0) {
      startLine();
      bulletPending_ = !closing;
    } else if (contains(blockTags, name)) {
      startLine();
    } else if (name.compare(QLatin1String("td"), Qt::CaseInsensitive) == 0) {
      spacePending_ = true;
    }
  }

  /// In markup a line break is a space: turns the ones read so far into that.
  void becomeMarkup() {
    if (sawTag_) return;
    sawTag_ = true;
    text_ = text_.simplified();
    linesPending_ = 0;
    spacePending_ = spacePending_ || (at_ > 0 && html_[at_ - 1].isSpace());
  }

  void skipContent(QStringView name) {
    QString end = QStringLiteral("</");
    end.append(name);
    skipPast(end, at_);
    skipPast(u">", at_);
  }

  void skipPast(QStringView end, qsizetype from) {
    const qsizetype found = html_.indexOf(end, from, Qt::CaseInsensitive);
    at_ = found < 0 ? html_.size() : found + end.size();
  }

  void readEntity() {
    constexpr qsizetype longestName = 10;
    const QStringView ahead = html_.mid(at_ + 1, longestName + 1);
    const qsizetype length = ahead.indexOf(u';');
    const auto character = length > 0 ? decodedEntity(ahead.first(length)) : std::nullopt;
    if (!character) {
      ++at_;
      return appendUnit(u'&');
    }
    at_ += length + 2;
    if (*character == u'\u00a0' || *character == u'\n' || *character == u'\t') {
      spacePending_ = true;
    } else if (!isDisguise(*character)) {
      appendGap();
      text_.append(QChar::fromUcs4(*character));
    }
  }

  void appendUnit(QChar unit) {
    if (unit == QChar::Nbsp) {
      spacePending_ = true;
    } else if (!isDisguise(unit.unicode())) {
      appendGap();
      text_.append(unit);
    }
  }

  /// What is due before the next character: lines, a bullet or a space, never at the very front.
  void appendGap() {
    if (!text_.isEmpty()) {
      if (linesPending_ > 0) {
        text_.append(QString(std::min(linesPending_, 2), u'\n'));
      } else if (spacePending_) {
        text_.append(u' ');
      }
    }
    if (bulletPending_) text_.append(QStringLiteral("\u2022 "));
    linesPending_ = 0;
    spacePending_ = false;
    bulletPending_ = false;
  }

  void startLine() { linesPending_ = std::max(linesPending_, 1); }
  void breakLine() { linesPending_ = std::min(linesPending_ + 1, 2); }

  void cut() {
    text_.truncate(std::max<qsizetype>(maximumLength_ - 1, 0));
    if (!text_.isEmpty() && text_.back().isHighSurrogate()) text_.chop(1);
    if (maximumLength_ > 0) text_.append(u'\u2026');
  }

  QStringView html_;
  qsizetype maximumLength_;
  qsizetype at_ = 0;
  QString text_;
  int linesPending_ = 0;
  bool spacePending_ = false;
  bool bulletPending_ = false;
  bool sawTag_ = false;
};

}  // namespace

QString plainText(QStringView html, qsizetype maximumLength) {
  return HtmlReader(html, maximumLength).read();
}

}  // namespace orvane
