#include <gtest/gtest.h>

#include <string>

#include "core/number_format.h"
#include "core/utf8.h"

namespace orvane {
namespace {

TEST(FixedText, RoundsLikePrintf) {
  EXPECT_EQ(fixedText(85.04, 1), "85.0");
  EXPECT_EQ(fixedText(0.125, 2), "0.12");
  EXPECT_EQ(fixedText(2.5, 0), "2");
  EXPECT_EQ(fixedText(-0.04, 1), "-0.0");
  EXPECT_EQ(fixedText(1e300, 0).size(), 301U);
}

TEST(DecodeUtf8, ReplacesEachInvalidSequence) {
  const std::string fffd = "\xEF\xBF\xBD";
  const std::pair<std::string, std::string> cases[] = {
      {"/usr/bin/caf\xC3\xA9", "/usr/bin/caf\xC3\xA9"},
      {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
      {"a\xC3", "a" + fffd},                 // cut short
      {"\xC0\xAF", fffd + fffd},             // overlong
      {"\xED\xA0\x80", fffd + fffd + fffd},  // surrogate
      {"\xF5\x80", fffd + fffd},             // beyond the last code point
      {"\xE2\x82x", fffd + "x"},             // the next character survives
      {std::string("cut\0here", 8), "cut"}};
  for (const auto& [bytes, text] : cases) EXPECT_EQ(decodeUtf8(bytes), text);
}

}  // namespace
}  // namespace orvane
