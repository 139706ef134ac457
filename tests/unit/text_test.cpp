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

TEST(SingleLineText, MakesOneLineOfWhateverANameHolds) {
  const std::string fffd = "\xEF\xBF\xBD";
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"Caf\xC3\xA9 \xF0\x9F\x98\x80  2", "Caf\xC3\xA9 \xF0\x9F\x98\x80  2"},
      {"\xD7\xA2\xD7\x95 \xD8\xB9", "\xD7\xA2\xD7\x95 \xD8\xB9"},  // names from right to left stay
      {"a\xFF\xC3z\xED\xA0\x80", "a" + fffd + fffd + "z" + fffd + fffd + fffd},
      {"one\r\n\t\x1F\x7Ftwo", "one two"},
      {std::string("nul\0byte", 8), "nul byte"},
      {"next\xC2\x85line\xE2\x80\xA8 and\xE2\x80\xA9paragraph\xC2\x9F", "next line and paragraph"},
      {"not a control: \xC2\xA0\x7E", "not a control: \xC2\xA0\x7E"},
      {" a \n b\n c ", "a  b c"},  // no third space
      {" \n a\t ", "a"},           // none at the ends
      {"\x01\x02 \x03", ""},
      {"a\n\xE2\x80\x8F\nb", "a b"},
      {"\xD8\x9C\xE2\x80\x8E\xE2\x80\x8F\xE2\x80\xAA\xE2\x80\xAB\xE2\x80\xAC\xE2\x80\xAD\xE2\x80"
       "\xAE",
       ""},
      {"x\xE2\x81\xA6\xE2\x81\xA7\xE2\x81\xA8\xE2\x81\xA9\xEF\xBB\xBFy", "xy"},
      // their neighbours stay
      {"\xE2\x80\x8D\xE2\x80\xAF\xE2\x81\xA5", "\xE2\x80\x8D\xE2\x80\xAF\xE2\x81\xA5"}};
  for (const auto& [bytes, text] : cases) EXPECT_EQ(singleLineText(bytes), text);
}

TEST(SingleLineText, CutsAtItsLimitOfCharactersNotBytes) {
  const auto repeated = [](std::string_view character, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += character;
    return text;
  };
  const std::string ellipsis = "\xE2\x80\xA6";
  const std::string smile = "\xF0\x9F\x98\x80";
  EXPECT_EQ(singleLineText(repeated(smile, 256)), repeated(smile, 256));
  EXPECT_EQ(singleLineText(repeated(smile, 257)), repeated(smile, 255) + ellipsis);
  EXPECT_EQ(singleLineText(repeated("\xFF", 1000)), repeated("\xEF\xBF\xBD", 255) + ellipsis);
  EXPECT_EQ(singleLineText(repeated("\n", 1000) + repeated("a", 256) + "\n\n"), repeated("a", 256));
  EXPECT_EQ(singleLineText(repeated("a", 256) + "  "), repeated("a", 256));
  EXPECT_EQ(singleLineText(repeated("a", 250) + repeated(" ", 20) + "b"),
            repeated("a", 250) + ellipsis);
}

}  // namespace
}  // namespace orvane
