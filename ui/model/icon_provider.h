#pragma once

#include <QQuickImageProvider>
#include <string>

namespace orvane {

/// Pictures of applications for Image, by themed icon name or absolute path.
class IconProvider : public QQuickImageProvider {
 public:
  static constexpr const char* providerId = "application";

  IconProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

  /// The address of an icon; empty when the desktop has no such icon.
  [[nodiscard]] static QString source(const std::string& name);

  QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

}  // namespace orvane
