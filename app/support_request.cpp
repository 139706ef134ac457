#include "app/support_request.h"

#include <algorithm>
#include <cstddef>

namespace orvane {

namespace {

constexpr std::string_view subject = "Orvane Support Request";
constexpr std::string_view body = "Hello Orvane Team,\n\nI need assistance with the following:\n\n";

bool isOneOf(std::string_view set, char c) {
  return set.find(c) != std::string_view::npos;
}

bool isLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// The characters of a URL's query, less those that separate its fields or stand for a space.
bool staysInField(char c) {
  return isLetterOrDigit(c) || isOneOf("-._~!$'()*,:@/?", c);
}

std::string percentEncoded(std::string_view text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string encoded;
  for (const char c : text) {
    if (staysInField(c)) {
      encoded += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      encoded += {'%', digits[byte >> 4U], digits[byte & 15U]};
    }
  }
  return encoded;
}

/// Whether every character can stand in the URL as it is.
bool isMailAddress(std::string_view address) {
  const std::size_t at = address.find('@');
  if (at == std::string_view::npos) return false;
  const std::string_view name = address.substr(0, at);
  const std::string_view domain = address.substr(at + 1);
  const auto inName = [](char c) { return isLetterOrDigit(c) || isOneOf("-._~!$'*+", c); };
  const auto inDomain = [](char c) { return isLetterOrDigit(c) || isOneOf("-.", c); };
  return !name.empty() && !domain.empty() && std::all_of(name.begin(), name.end(), inName) &&
         std::all_of(domain.begin(), domain.end(), inDomain);
}

}  // namespace

std::optional<std::string> supportMailUrl(std::string_view address) {
  if (!isMailAddress(address)) return std::nullopt;
  return "mailto:" + std::string(address) + "?subject=" + percentEncoded(subject) +
         "&body=" + percentEncoded(body);
}

}  // namespace orvane
