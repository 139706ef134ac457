#pragma once

#include <QQuickImageProvider>
#include <functional>
#include <string>

#include "ui/icons/icon_drawing.h"

namespace orvane {

/// Gives what `drawIcon` gives, and nothing where that would take too long or too much. Threads:
/// any.
using IconDrawer = std::function<QByteArray(const IconRequest& request)>;

/// Pictures of applications for Image, by themed icon name or absolute path; one after the other,
/// beside the event loop.
///
/// An icon that can't be shown is a picture of one clear pixel: Image would print a line about
/// none. Making the provider turns off QPixmapCache, which would keep what Image keeps.
class IconProvider : public QQuickImageProvider {
 public:
  static constexpr const char* providerId = "application";

  explicit IconProvider(IconDrawer draw);

  /// The address of an icon; empty when the desktop has no such icon. Main thread only.
  [[nodiscard]] static QString source(const std::string& name);

  QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

 private:
  IconDrawer draw_;
  IconRequest request_;  ///< what all have in common
};

}  // namespace orvane
