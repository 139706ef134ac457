#include <gtest/gtest.h>

#include <numeric>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "core/number_format.h"
#include "core/texts.h"
#include "core/utf8.h"
#include "core/uuid.h"

namespace orvane {
namespace {

TEST(FixedText, RoundsLikePrintf) {
  EXPECT_EQ(fixedText(85.04, 1), "85.0");
  EXPECT_EQ(fixedText(0.125, 2), "0.12");
  EXPECT_EQ(fixedText(2.5, 0), "2");
  EXPECT_EQ(fixedText(-0.04, 1), "-0.0");
  EXPECT_EQ(fixedText(1e300, 0).size(), 301U);
  EXPECT_EQ(fixedText(1.0, 400), "") << "more than anything shows";
}

TEST(Filled, PutsEachValueInItsPlaceAndLooksIntoNone) {
  EXPECT_EQ(filled("%2 of %1, 100% %3", {"%2", "b"}), "b of %2, 100% %3");
  EXPECT_EQ(filled("%1%", {"5"}), "5%");
}

const std::string fffd = "\xEF\xBF\xBD";

/// A code point in so many bytes, also when fewer would do.
std::string encoded(std::uint32_t point, unsigned length) {
  if (length == 1) return {static_cast<char>(point)};
  std::string bytes;
  for (unsigned index = 1; index < length; ++index, point >>= 6U)
    bytes.insert(bytes.begin(), static_cast<char>(0x80U | (point & 0x3FU)));
  return static_cast<char>((0xFF00U >> length) | point) + bytes;
}

unsigned shortestLength(std::uint32_t point) {
  return point < 0x80 ? 1 : point < 0x800 ? 2 : point < 0x10000 ? 3 : 4;
}

TEST(DecodeUtf8, KeepsValidSequencesAndReplacesAllOthers) {
  struct {
    unsigned length;
    std::uint32_t end, block;  // the first and the last of each block are tried
  } const forms[] = {{1, 0x80, 1}, {2, 0x800, 1}, {3, 0x10000, 0x40}, {4, 0x200000, 0x1000}};
  for (const auto& [length, end, block] : forms) {
    for (std::uint32_t tried = 2; tried < 2 * end / block; ++tried) {
      const std::uint32_t point = tried / 2 * block + (tried % 2) * (block - 1);
      const bool isSurrogate = point >= 0xD800 && point <= 0xDFFF;
      const std::string bytes = encoded(point, length);
      if (length == shortestLength(point) && !isSurrogate && point <= 0x10FFFF) {
        ASSERT_EQ(decodeUtf8(bytes), bytes);
        for (std::size_t cut = 1; cut < length; ++cut) {  // what follows survives
          ASSERT_EQ(decodeUtf8(bytes.substr(0, cut)), fffd) << point;
          ASSERT_EQ(decodeUtf8(bytes.substr(0, cut) + "\x7F\xC0"), fffd + "\x7F" + fffd) << point;
          ASSERT_EQ(decodeUtf8(bytes.substr(0, cut) + "\xC0"), fffd + fffd) << point;
        }
      } else {
        std::string replaced;
        for (const char byte : bytes) replaced += byte == 0 ? "" : fffd;
        ASSERT_EQ(decodeUtf8(bytes), replaced) << length << " bytes for " << point;
      }
    }
  }
  EXPECT_EQ(decodeUtf8(std::string("cut\0here\xF8", 9)), "cut");
  EXPECT_EQ(decodeUtf8("\x80\xF8\xFF"), fffd + fffd + fffd);
}

TEST(SingleLineText, MakesOneLineOfWhateverANameHolds) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"a\xFF\xC3z\xED\xA0\x80", "a" + fffd + fffd + "z" + fffd + fffd + fffd},
      {"one\r\n\t\x1F\x7Ftwo  3", "one two  3"},
      {" a \n b\n c ", "a  b c"},  // no third space
      {" \n a\t ", "a"},           // none at the ends
      {"\x01\x02 \x03", ""},
      {"\xE2\x80\x8B\xC2\xA0\xE2\x81\xA0\xE3\x85\xA4", ""},  // nothing that shows
      {"\xE2\x80\x8B!\xC2\xA0", "\xE2\x80\x8B!\xC2\xA0"},
      {"a\n\xE2\x80\x8F\nb", "a b"}};
  for (const auto& [bytes, text] : cases) EXPECT_EQ(singleLineText(bytes), text);
  // What stands for a code point: controls and breaks are spaces, marks of direction nothing.
  const std::tuple<std::uint32_t, std::uint32_t, std::string> ranges[] = {
      {0, 0x1F, " "},       {0x7F, 0x9F, " "},    {0x2028, 0x2029, " "}, {0x61C, 0x61C, ""},
      {0x200E, 0x200F, ""}, {0x202A, 0x202E, ""}, {0x2066, 0x2069, ""},  {0xFEFF, 0xFEFF, ""}};
  std::vector<std::uint32_t> points(0x3000);
  std::iota(points.begin(), points.end(), 0);
  points.insert(points.end(), {0xFEFE, 0xFEFF, 0xFF00, 0x1061C, 0x1F600, 0x10FFFF});
  for (const auto point : points) {
    const std::string character = encoded(point, shortestLength(point));
    std::string between = character;
    for (const auto& [first, last, text] : ranges)
      if (point >= first && point <= last) between = text;
    ASSERT_EQ(singleLineText("a" + character + "b"), "a" + between + "b") << point;
  }
}

TEST(SingleLineText, CutsAtItsLimitOfCharactersNotBytes) {
  const auto times = [](std::string_view character, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += character;
    return text;
  };
  const std::string ellipsis = "\xE2\x80\xA6";
  const std::string smile = "\xF0\x9F\x98\x80";
  EXPECT_EQ(singleLineText(times(smile, 256)), times(smile, 256));
  EXPECT_EQ(singleLineText(times(smile, 257)), times(smile, 255) + ellipsis);
  EXPECT_EQ(singleLineText(times("\xFF", 1000)), times("\xEF\xBF\xBD", 255) + ellipsis);
  EXPECT_EQ(singleLineText(times("\n", 1000) + times("a", 256) + "\n\n"), times("a", 256));
  EXPECT_EQ(singleLineText(times("a", 256) + "  "), times("a", 256));
  EXPECT_EQ(singleLineText(times("a", 250) + times(" ", 20) + "b"), times("a", 250) + ellipsis);
}

TEST(Uuid, WritesRandomDigitsInTheUsualForm) {
  const std::string form = "xxxxxxxx-xxxx-4xxx-vxxx-xxxxxxxxxxxx";
  std::vector<std::set<char>> seen(form.size());
  for (int round = 0; round < 1000; ++round) {
    const std::string text = Uuid::random().text();
    ASSERT_EQ(text.size(), form.size());
    for (std::size_t index = 0; index < form.size(); ++index) seen[index].insert(text[index]);
  }
  for (std::size_t index = 0; index < form.size(); ++index) {
    std::string digits = {form[index]};
    if (digits == "x") digits = "0123456789ABCDEF";
    if (digits == "v") digits = "89AB";
    EXPECT_EQ(std::string(seen[index].begin(), seen[index].end()), digits) << index;
  }
}

}  // namespace
}  // namespace orvane
