#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

namespace orvane {

/// Figures as texts, with `decimals` digits after a point, whatever the user's locale is.
class Format : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  /// "7.3"
  [[nodiscard]] static QString number(double value, int decimals);
  /// "7.3 GB", in units of 2^30 bytes
  Q_INVOKABLE [[nodiscard]] static QString bytesInGB(double bytes, int decimals);
  /// "612 MB", in units of 2^20 bytes
  Q_INVOKABLE [[nodiscard]] static QString bytesInMB(double bytes, int decimals);
  /// "612 MB" of a figure that is in MB already
  Q_INVOKABLE [[nodiscard]] static QString figureInMB(double megabytes, int decimals);
  /// "62.4%"
  Q_INVOKABLE [[nodiscard]] static QString percent(double percentage, int decimals);
  /// `part` / `whole` from 0 to 1; 0 when there is no whole to be part of.
  Q_INVOKABLE [[nodiscard]] static double fraction(double part, double whole) {
    return whole > 0 ? part / whole : 0.0;
  }
};

}  // namespace orvane
