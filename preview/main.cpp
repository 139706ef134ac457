#include <QColor>
#include <QCommandLineParser>
#include <QFont>
#include <QGuiApplication>
#include <QTemporaryFile>
#include <QTimer>
#include <algorithm>
#include <cstdio>

#include "preview/preview_stage.h"
#include "preview/scenario.h"

namespace {

using orvane::preview::PreviewStage;
using orvane::preview::Scenario;

int listScenarios() {
  for (const Scenario& scenario : orvane::preview::scenarios()) {
    std::printf("%-20.*s %.*s\n", static_cast<int>(scenario.name.size()), scenario.name.data(),
                static_cast<int>(scenario.description.size()), scenario.description.data());
  }
  return 0;
}

int fail(const QString& message) {
  std::fprintf(stderr, "%s\n", qPrintable(message));
  return 1;
}

/// Gives the offscreen platform a screen on which no window has to be lower than it wants to be, at
/// any scale. The file has to exist until the application does.
void enlargeScreen(QTemporaryFile& configuration) {
  if (!configuration.open()) return;
  configuration.write(R"({"screens": [{"width": 4096, "height": 4096}]})");
  configuration.close();
  qputenv("QT_QPA_PLATFORM",
          QByteArray("offscreen:configfile=") + configuration.fileName().toLocal8Bit());
}

/// Options that Qt reads from the environment before the application exists.
void prepareEnvironment(int argc, char** argv, QTemporaryFile& screen) {
  bool needsNoDisplay = false;
  for (int i = 1; i < argc; ++i) {
    const QByteArray argument(argv[i]);
    if (argument.startsWith("--shot") || argument == "--list") needsNoDisplay = true;
    if (argument == "--scale" && i + 1 < argc) qputenv("QT_SCALE_FACTOR", argv[i + 1]);
    if (argument.startsWith("--scale=")) qputenv("QT_SCALE_FACTOR", argument.mid(8));
  }
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (platform == "offscreen" || (needsNoDisplay && platform.isEmpty())) enlargeScreen(screen);
}

/// What lies behind windows with round corners in a picture.
const QColor deskColor(0x8F, 0xA3, 0xB8);

int shoot(PreviewStage& stage, const Scenario& scenario, const QString& file) {
  int result = 1;
  stage.pictured()->setColor(deskColor);
  QTimer settled;
  settled.setSingleShot(true);
  settled.setInterval(scenario.settleMilliseconds);
  // A busy machine shows its first frame late; what moves changes the window's height.
  const auto restart = [&settled] { settled.start(); };
  QObject::connect(stage.window(), &QQuickWindow::frameSwapped, &settled, restart,
                   Qt::SingleShotConnection);
  QObject::connect(stage.window(), &QWindow::heightChanged, &settled, restart);
  QObject::connect(&settled, &QTimer::timeout, &settled, [&] {
    const bool saved = stage.pictured()->grabWindow().save(file);
    result = saved ? 0 : fail(QStringLiteral("Can't write %1").arg(file));
    QCoreApplication::exit();  // quit() would ask the main window, which only hides
  });
  settled.start();
  QCoreApplication::exec();
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  QTemporaryFile screen;
  prepareEnvironment(argc, argv, screen);
  const QGuiApplication application(argc, argv);
  QFont font = QGuiApplication::font();
  font.setPointSizeF(10);  // at which texts have the sizes that the views name
  QGuiApplication::setFont(font);
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Shows the real views on scripted services."));
  parser.addHelpOption();
  parser.addPositionalArgument(QStringLiteral("scenario"), QStringLiteral("what to show"));
  parser.addOptions(
      {{QStringLiteral("list"), QStringLiteral("List the scenarios.")},
       {QStringLiteral("dark"), QStringLiteral("Dark colours.")},
       {QStringLiteral("square"), QStringLiteral("Windows with square corners.")},
       {QStringLiteral("scale"), QStringLiteral("Scale factor."), QStringLiteral("factor")},
       {QStringLiteral("shot"), QStringLiteral("Write a picture and end."),
        QStringLiteral("file")}});
  parser.process(application);
  if (parser.isSet(QStringLiteral("list"))) return listScenarios();

  const QString name = parser.positionalArguments().value(0);
  const auto all = orvane::preview::scenarios();
  const auto found = std::find_if(all.begin(), all.end(), [&](const Scenario& scenario) {
    return name == QLatin1String(scenario.name.data(), static_cast<int>(scenario.name.size()));
  });
  if (found == all.end()) return fail(QStringLiteral("No such scenario; --list names them."));

  PreviewStage stage;
  const bool dark = parser.isSet(QStringLiteral("dark"));
  stage.setAppearance(
      {.colorScheme = dark ? orvane::ColorScheme::dark : orvane::ColorScheme::light},
      !parser.isSet(QStringLiteral("square")));
  found->run(stage);
  if (!parser.isSet(QStringLiteral("shot"))) return QGuiApplication::exec();
  return shoot(stage, *found, parser.value(QStringLiteral("shot")));
}
