#include "platform/linux/version_order.h"

#include <algorithm>
#include <cstddef>

namespace orvane {

namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
bool isLetter(char c) {
  return lowered(c) >= 'a' && lowered(c) <= 'z';
}

std::string_view withoutV(std::string_view text) {
  if (text.size() > 1 && lowered(text.front()) == 'v' && isDigit(text[1])) text.remove_prefix(1);
  return text;
}

template <typename Predicate>
std::string_view takeWhile(std::string_view& text, Predicate accepts) {
  const auto end = std::find_if_not(text.begin(), text.end(), accepts);
  const auto run = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(run.size());
  return run;
}

/// Of any length, so that no number overflows.
std::weak_ordering compareNumbers(std::string_view left, std::string_view right) {
  left.remove_prefix(std::min(left.find_first_not_of('0'), left.size()));
  right.remove_prefix(std::min(right.find_first_not_of('0'), right.size()));
  if (left.size() != right.size()) return left.size() <=> right.size();
  return left.compare(right) <=> 0;
}

std::weak_ordering compareWords(std::string_view left, std::string_view right) {
  return std::lexicographical_compare_three_way(
      left.begin(), left.end(), right.begin(), right.end(),
      [](char a, char b) { return std::weak_ordering(lowered(a) <=> lowered(b)); });
}

/// Takes the next of the leading numbers, and the dot before it.
std::string_view takeNumber(std::string_view& rest) {
  std::string_view ahead = rest;
  if (!ahead.empty() && ahead.front() == '.') ahead.remove_prefix(1);
  const std::string_view number = takeWhile(ahead, isDigit);
  if (!number.empty()) rest = ahead;
  return number;
}

/// Takes the next run of digits or of letters; empty at the end.
std::string_view takePiece(std::string_view& rest) {
  takeWhile(rest, [](char c) { return !isDigit(c) && !isLetter(c); });
  const std::string_view number = takeWhile(rest, isDigit);
  return number.empty() ? takeWhile(rest, isLetter) : number;
}

std::weak_ordering comparePieces(std::string_view left, std::string_view right) {
  if (left.empty() || right.empty()) return !left.empty() <=> !right.empty();
  if (isDigit(left.front()) != isDigit(right.front())) {
    return isDigit(left.front()) ? std::weak_ordering::less : std::weak_ordering::greater;
  }
  return isDigit(left.front()) ? compareNumbers(left, right) : compareWords(left, right);
}

std::weak_ordering comparePreReleases(std::string_view left, std::string_view right) {
  for (;;) {
    const std::string_view leftPiece = takePiece(left);
    const std::string_view rightPiece = takePiece(right);
    if (leftPiece.empty() && rightPiece.empty()) return std::weak_ordering::equivalent;
    const auto order = comparePieces(leftPiece, rightPiece);
    if (std::is_neq(order)) return order;
  }
}

bool isPreRelease(std::string_view rest) {
  return !takePiece(rest).empty();
}

}  // namespace

bool isVersion(std::string_view text) {
  constexpr std::size_t longest = 64;
  const std::string_view version = withoutV(text);
  return text.size() <= longest && !version.empty() && isDigit(version.front()) &&
         std::all_of(version.begin(), version.end(), [](char c) {
           return isDigit(c) || isLetter(c) ||
                  std::string_view(".-+~_").find(c) != std::string_view::npos;
         });
}

std::weak_ordering compareVersions(std::string_view left, std::string_view right) {
  left = withoutV(left.substr(0, left.find('+')));
  right = withoutV(right.substr(0, right.find('+')));
  for (;;) {
    const std::string_view leftNumber = takeNumber(left);
    const std::string_view rightNumber = takeNumber(right);
    if (leftNumber.empty() && rightNumber.empty()) break;
    const auto order = compareNumbers(leftNumber, rightNumber);
    if (std::is_neq(order)) return order;
  }
  if (isPreRelease(left) != isPreRelease(right)) {
    return isPreRelease(left) ? std::weak_ordering::less : std::weak_ordering::greater;
  }
  return comparePreReleases(left, right);
}

}  // namespace orvane
