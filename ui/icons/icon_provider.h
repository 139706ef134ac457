#pragma once

#include <QQuickImageProvider>
#include <string>

#include "ui/icons/file_reader.h"

namespace orvane {

/// Pictures of applications for Image, by themed icon name or absolute path.
///
/// An icon that can't be shown is a picture of one clear pixel: Image would print a line about
/// none. Making the provider limits what any picture of the program may take to 64 MB, turns off
/// QPixmapCache, which would keep what Image keeps, and keeps Qt's readers from printing what they
/// think of a file; QT_LOGGING_RULES brings that back.
class IconProvider : public QQuickImageProvider {
 public:
  static constexpr const char* providerId = "application";

  /// Icons with a path come from `readFile`.
  explicit IconProvider(FileReader readFile);

  /// The address of an icon; empty when the desktop has no such icon.
  [[nodiscard]] static QString source(const std::string& name);

  QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

 private:
  [[nodiscard]] QImage fileIcon(const QString& path, QSize size) const;

  FileReader readFile_;
};

}  // namespace orvane
