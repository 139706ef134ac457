#include "app/support_request.h"

#include <QRegularExpression>
#include <QUrl>

namespace orvane {

namespace {

constexpr const char* subject = "Orvane Support Request";
constexpr const char* body = "Hello Orvane Team,\n\nI need assistance with the following:\n\n";

/// The characters of a URL's query stay, less those that separate its fields or stand for a space.
std::string percentEncoded(const char* text) {
  return QUrl::toPercentEncoding(QString::fromLatin1(text), "!$'()*,:@/?").toStdString();
}

/// Whether every character can stand in the URL as it is.
bool isMailAddress(std::string_view address) {
  static const QRegularExpression form(
      QStringLiteral("\\A[-._~!$'*+A-Za-z0-9]+@[-.A-Za-z0-9]+\\z"));
  return form.match(QString::fromUtf8(address.data(), static_cast<qsizetype>(address.size())))
      .hasMatch();
}

}  // namespace

std::optional<std::string> supportMailUrl(std::string_view address) {
  if (!isMailAddress(address)) return std::nullopt;
  return "mailto:" + std::string(address) + "?subject=" + percentEncoded(subject) +
         "&body=" + percentEncoded(body);
}

}  // namespace orvane
