// Draws one icon of an application, in a process of its own: whatever a drawing takes or breaks, it
// is not the program's. The arguments are those of an `IconRequest`; the pixels go to standard
// output.
#include <QtCore/QLoggingCategory>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtGui/QImageReader>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "platform/linux/files/regular_file.h"
#include "platform/linux/runtime/bounded_process.h"
#include "ui/icons/icon_drawing.h"

namespace {

constexpr int mostMegabytes = 64;

bool draw(const QStringList& arguments) {
  const auto request = orvane::IconRequest::from(arguments);
  if (!request) return false;
  QIcon::setThemeSearchPaths(request->searchPaths);
  QIcon::setThemeName(request->theme);
  QIcon::setFallbackThemeName(request->fallbackTheme);
  QImageReader::setAllocationLimit(mostMegabytes);
  const QByteArray pixels = orvane::drawIcon(*request, orvane::readRegularFile);
  const auto size = static_cast<std::size_t>(pixels.size());
  return std::fwrite(pixels.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
}

}  // namespace

int main(int count, char** values) {
  orvane::boundThisProcess();
  // Whatever desktop it is: nothing is shown, and a theme of widgets would be loaded for nothing.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qunsetenv("QT_QPA_PLATFORMTHEME");
  const QGuiApplication application(count, values);
  // As it may lie on a network's disk or hold the worst, nothing is taken apart at the end.
  std::_Exit(draw(QGuiApplication::arguments().mid(1)) ? 0 : 1);
}
