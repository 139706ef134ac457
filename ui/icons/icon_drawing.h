#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace orvane {

/// Gives the bytes of a regular file; none, and at once, for anything else, for a file of more than
/// `limit` bytes and for one that can't be read.
using FileReader =
    std::function<std::optional<std::string>(const std::string& path, std::size_t limit)>;

/// Which icon to draw how, and the theme to find it in; as arguments of the program that draws.
struct IconRequest {
  QString icon;  ///< its absolute path, or its name in the theme
  QSize size;    ///< to which it is stretched
  QString theme;
  QString fallbackTheme;
  QStringList searchPaths;

  [[nodiscard]] QStringList arguments() const;
  /// None when `arguments` aren't those of a request.
  [[nodiscard]] static std::optional<IconRequest> from(const QStringList& arguments);
};

/// The icon's pixels, QImage::Format_ARGB32_Premultiplied, row after row; empty when there is none.
/// One with a path comes from `readFile`, any other from the theme that QIcon has.
///
/// Any program may have made the icon: a drawing (SVG) can take any time and memory, and a pipe in
/// the theme is waited for.
[[nodiscard]] QByteArray drawIcon(const IconRequest& request, const FileReader& readFile);

}  // namespace orvane
