#include "ui/style/formats.h"

#include <cmath>

#include "core/number_format.h"

namespace orvane {

QString fixedNumber(double value, int decimals) {
  return QString::fromStdString(fixedText(value, decimals));
}

QString gigabytesText(double bytes, int decimals) {
  return fixedNumber(bytes / bytesPerGB, decimals) + QStringLiteral(" GB");
}

QString megabytesText(double megabytes, int decimals) {
  return fixedNumber(megabytes, decimals) + QStringLiteral(" MB");
}

QString percentText(double percentage, int decimals) {
  return fixedNumber(percentage, decimals) + QStringLiteral("%");
}

QString wholePercentText(double percentage) {
  return percentText(std::trunc(percentage), 0);
}

double fraction(double part, double whole) {
  return whole > 0 ? part / whole : 0.0;
}

}  // namespace orvane
