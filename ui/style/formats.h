#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

#include <cstdint>

namespace orvane {

inline constexpr double bytesPerGB = 1073741824.0;

/// `value` with `decimals` digits after a point, whatever the user's locale is.
[[nodiscard]] QString fixedNumber(double value, int decimals);

/// "7.3 GB", in units of 2^30 bytes
[[nodiscard]] QString gigabytesText(double bytes, int decimals);

/// "612 MB", in units of 2^20 bytes, from a figure that is in MB already
[[nodiscard]] QString megabytesText(double megabytes, int decimals);

/// "62.4%"
[[nodiscard]] QString percentText(double percentage, int decimals);

/// "62%", truncated toward zero
[[nodiscard]] QString wholePercentText(double percentage);

/// `part` / `whole` from 0 to 1; 0 when there is no whole to be part of.
[[nodiscard]] double fraction(double part, double whole);

/// The formats for views. One a QML engine.
class Format : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  Q_INVOKABLE [[nodiscard]] QString gigabytes(double bytes, int decimals) const {
    return gigabytesText(bytes, decimals);
  }
  Q_INVOKABLE [[nodiscard]] QString megabytes(double megabytes, int decimals) const {
    return megabytesText(megabytes, decimals);
  }
  Q_INVOKABLE [[nodiscard]] QString percent(double percentage, int decimals) const {
    return percentText(percentage, decimals);
  }
  Q_INVOKABLE [[nodiscard]] QString wholePercent(double percentage) const {
    return wholePercentText(percentage);
  }
  Q_INVOKABLE [[nodiscard]] double fraction(double part, double whole) const {
    return orvane::fraction(part, whole);
  }
};

}  // namespace orvane
