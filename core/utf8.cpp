#include "core/utf8.h"

#include <cstddef>

namespace orvane {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

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

}  // namespace orvane
