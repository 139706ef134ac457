#include "core/utf8.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace orvane {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";
constexpr std::string_view ellipsis = "\xE2\x80\xA6";
constexpr std::size_t longestLine = 256;  // code points

unsigned char byteAt(std::string_view bytes, std::size_t index) {
  return static_cast<unsigned char>(bytes[index]);
}

struct LeadByte {
  std::size_t length;        // of the whole sequence, 0 when the byte can't begin one
  unsigned char secondLow;   // the second byte's range keeps out overlong forms, surrogates
  unsigned char secondHigh;  // and what lies beyond U+10FFFF
};

LeadByte classify(unsigned char lead) {
  if (lead < 0x80) return {1, 0, 0};
  if (lead < 0xC2) return {0, 0, 0};
  if (lead < 0xE0) return {2, 0x80, 0xBF};
  if (lead == 0xE0) return {3, 0xA0, 0xBF};
  if (lead == 0xED) return {3, 0x80, 0x9F};
  if (lead < 0xF0) return {3, 0x80, 0xBF};
  if (lead == 0xF0) return {4, 0x90, 0xBF};
  if (lead < 0xF4) return {4, 0x80, 0xBF};
  if (lead == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

struct Sequence {
  std::size_t length;
  bool valid;
};

// An invalid sequence is as long as what could have begun a valid one, and at least one byte.
Sequence sequenceAt(std::string_view bytes, std::size_t start) {
  const LeadByte lead = classify(byteAt(bytes, start));
  if (lead.length == 0) return {1, false};
  std::size_t length = 1;
  while (length < lead.length && start + length < bytes.size()) {
    const unsigned char next = byteAt(bytes, start + length);
    const unsigned char low = length == 1 ? lead.secondLow : 0x80;
    const unsigned char high = length == 1 ? lead.secondHigh : 0xBF;
    if (next < low || next > high) break;
    ++length;
  }
  return {length, length == lead.length};
}

/// The code point of a valid sequence.
char32_t codePoint(std::string_view sequence) {
  char32_t point = byteAt(sequence, 0);
  if (sequence.size() > 1) point &= 0x7FU >> sequence.size();
  for (std::size_t index = 1; index < sequence.size(); ++index) {
    point = (point << 6U) | (byteAt(sequence, index) & 0x3FU);
  }
  return point;
}

bool isControl(char32_t point) {
  return point < 0x20 || (point >= 0x7F && point <= 0x9F) || point == 0x2028 || point == 0x2029;
}

bool isDirectionMark(char32_t point) {
  return point == 0x061C || point == 0x200E || point == 0x200F ||
         (point >= 0x202A && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069) ||
         point == 0xFEFF;
}

/// Takes room or joins others, but shows nothing by itself.
bool isInvisible(char32_t point) {
  constexpr std::pair<char32_t, char32_t> ranges[] = {
      {0xA0, 0xA0},     {0xAD, 0xAD},     {0x34F, 0x34F},   {0x115F, 0x1160},
      {0x1680, 0x1680}, {0x17B4, 0x17B5}, {0x180B, 0x180F}, {0x2000, 0x200F},
      {0x202F, 0x202F}, {0x205F, 0x206F}, {0x2800, 0x2800}, {0x3000, 0x3000},
      {0x3164, 0x3164}, {0xFE00, 0xFE0F}, {0xFFA0, 0xFFA0}, {0xE0000, 0xE0FFF}};
  return std::any_of(std::begin(ranges), std::end(ranges), [&](const auto& range) {
    return point >= range.first && point <= range.second;
  });
}

/// Takes characters one by one and keeps those that a line may have.
class LineBuilder {
 public:
  void append(std::string_view character) {
    const char32_t point = codePoint(character);
    if (point == U' ') {
      ++spaces_;
    } else if (isControl(point)) {
      breakPending_ = true;
    } else if (!isDirectionMark(point)) {
      addGap();
      add(character);
      isBlank_ = isBlank_ && isInvisible(point);
    }
  }

  [[nodiscard]] bool isFull() const { return length_ > longestLine; }

  [[nodiscard]] std::string finish() {
    if (isBlank_) return {};
    if (isFull()) {
      text_.resize(lastThatFits_);
      text_.resize(text_.find_last_not_of(' ') + 1);
      text_ += ellipsis;
    }
    return std::move(text_);
  }

 private:
  /// The space that is due before the next character, none at the very front.
  void addGap() {
    if (spaces_ == 0 && breakPending_) spaces_ = 1;
    for (; spaces_ > 0 && !text_.empty() && !isFull(); --spaces_) add(" ");
    spaces_ = 0;
    breakPending_ = false;
  }

  void add(std::string_view character) {
    text_ += character;
    if (++length_ == longestLine - 1) lastThatFits_ = text_.size();
  }

  std::string text_;
  std::size_t length_ = 0;        // in code points
  std::size_t lastThatFits_ = 0;  // where the text ends that has room for an ellipsis
  std::size_t spaces_ = 0;        // read, but not in the text yet
  bool breakPending_ = false;
  bool isBlank_ = true;  // nothing that shows so far
};

}  // namespace

std::string decodeUtf8(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find('\0'));
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t index = 0; index < bytes.size();) {
    const Sequence sequence = sequenceAt(bytes, index);
    text += sequence.valid ? bytes.substr(index, sequence.length) : replacement;
    index += sequence.length;
  }
  return text;
}

std::string singleLineText(std::string_view bytes) {
  LineBuilder line;
  for (std::size_t index = 0; index < bytes.size() && !line.isFull();) {
    const Sequence sequence = sequenceAt(bytes, index);
    line.append(sequence.valid ? bytes.substr(index, sequence.length) : replacement);
    index += sequence.length;
  }
  return line.finish();
}

}  // namespace orvane
