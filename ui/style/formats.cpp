#include "ui/style/formats.h"

#include "core/memory_stats.h"
#include "core/number_format.h"

namespace orvane {

QString Format::number(double value, int decimals) {
  return QString::fromStdString(fixedText(value, decimals));
}

QString Format::bytesInGB(double bytes, int decimals) {
  return number(bytes / (1024 * bytesPerMB), decimals) + QStringLiteral(" GB");
}

QString Format::bytesInMB(double bytes, int decimals) {
  return figureInMB(bytes / bytesPerMB, decimals);
}

QString Format::figureInMB(double megabytes, int decimals) {
  return number(megabytes, decimals) + QStringLiteral(" MB");
}

QString Format::percent(double percentage, int decimals) {
  return number(percentage, decimals) + QStringLiteral("%");
}

}  // namespace orvane
