#include <QGuiApplication>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QQuickItem>
#include <QTemporaryDir>
#include <cmath>
#include <string>

#include "preview/preview_stage.h"
#include "preview/scenario.h"
#include "ui/painted/smooth_path.h"

namespace orvane::preview {

namespace {

struct Application {
  std::int32_t pid;
  const char* name;
  const char* color;  ///< of its icon
  std::uint64_t megabytes;
  int threads;
  const char* path;
};

constexpr Application applications[] = {
    {2101, "Web Browser", "#3478f6", 1312, 84, "/usr/lib/web-browser/web-browser"},
    {2188, "Files", "#35b7c4", 742, 9, "/usr/bin/files"},
    {2240, "Mail", "#e8590c", 501, 21, "/usr/bin/mail"},
    {2302, "Text Editor", "#f2b400", 388, 6, "/usr/bin/text-editor"},
    {2377, "Terminal", "#2b2d33", 214, 4, "/usr/bin/terminal"},
    {2410, "Calculator", "#7b61ff", 166, 5, "/usr/bin/calculator"},
    {2466, "Help", "#2f9e44", 131, 12, "/usr/bin/help"},
    {2530, "Settings", "#868e96", 98, 7, "/usr/bin/settings"},
    {2594, "System Monitor", "#d6336c", 64, 3, "/usr/bin/system-monitor"},
    {2651, "Software", "#0ca678", 41, 8, "/usr/bin/software"}};

constexpr int settled = 900;

/// Draws an icon into a file, as an application without a themed one has.
std::string iconFile(const Application& application) {
  static const QTemporaryDir directory;
  QImage image(96, 96, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor color(QLatin1String(application.color));
  QLinearGradient shade(0, 0, 0, 96);
  shade.setColorAt(0, color.lighter(125));
  shade.setColorAt(1, color);
  painter.fillPath(smoothRectanglePath(QRectF(4, 4, 88, 88), 20), shade);
  QFont font;
  font.setPixelSize(54);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(image.rect(), Qt::AlignCenter, QString::fromUtf8(application.name).left(1));
  const QString path = directory.filePath(QStringLiteral("%1.png").arg(application.pid));
  image.save(path);
  return path.toStdString();
}

void add(PreviewStage& stage, const Application& application, bool withIcon = true) {
  fakes::FakeApplications& desktop = stage.services().applications;
  desktop.add(application.pid, application.name, application.megabytes << 20U, application.threads);
  desktop.paths[application.pid] = application.path;
  if (withIcon) desktop.applications.back().icon = ApplicationIcon{iconFile(application)};
}

void list(PreviewStage& stage, std::size_t count, bool withIcons = true) {
  for (std::size_t i = 0; i < count; ++i) add(stage, applications[i], withIcons);
}

/// The list with `points` collections behind it, on the screen.
void showList(PreviewStage& stage, int points = 1) {
  stage.manager();
  for (int i = 0; i < points; ++i) stage.advance(5);
  stage.showMainWindow();
  stage.item("content").setProperty("selectedTab", 1);
}

void select(PreviewStage& stage, std::size_t row) {
  stage.manager()->setSelectedProcess(stage.manager()->topProcesses().at(row));
}

/// Takes the picture of the menu, dialog or popover that was opened last.
void pictureTransient(PreviewStage& stage) {
  for (QWindow* window : QGuiApplication::topLevelWindows()) {
    if (window->transientParent() != nullptr && window->isVisible()) {
      stage.setPictured(qobject_cast<QQuickWindow*>(window));
    }
  }
}

/// The rows of the list that have been made, from top to bottom.
QList<QQuickItem*> rowItems(QQuickItem* parent) {
  QList<QQuickItem*> rows;
  for (QQuickItem* child : parent->childItems()) {
    if (child->objectName() == QStringLiteral("row")) rows << child;
    rows << rowItems(child);
  }
  return rows;
}

QQuickItem& rowItem(PreviewStage& stage, int row) {
  const QList<QQuickItem*> rows = rowItems(stage.window()->contentItem());
  if (row >= rows.size()) qFatal("the list has no row %d", row);
  return *rows[row];
}

template <int count>
void listOf(PreviewStage& stage) {
  list(stage, count);
  showList(stage);
}

void noIcons(PreviewStage& stage) {
  list(stage, 5, false);
  showList(stage);
}

void longNames(PreviewStage& stage) {
  list(stage, 2);
  add(stage, {3000, "The Extraordinarily Long-Winded Application for Everything and More",
              "#f2b400", 123456, 3,
              "/opt/an extraordinarily long/path to an application/with many folders/in it/and "
              "then some more of them/before at last/the-application"});
  add(stage, {3001, "Ünïcödé — アプリケーション 🚀 %1 <b>not bold</b>", "#3478f6", 12, 3, ""});
  showList(stage);
  select(stage, 0);
}

void rightToLeftNames(PreviewStage& stage) {
  list(stage, 2);
  add(stage, {3000, "עורך Pro (2)!", "#f2b400", 1400, 3, "/usr/bin/text-editor"});
  add(stage, {3001, "متصفح الويب", "#3478f6", 612, 3, "/usr/bin/browser"});
  add(stage,
      {3002, "יישום ארוך במיוחד לכל דבר ועניין ועוד כמה דברים שאינם נכנסים בשורה אחת של החלון",
       "#2f9e44", 88, 3, "/usr/bin/everything"});
  add(stage, {3003, "Editor (עורך) 2", "#d6336c", 12, 3, "/usr/bin/editor"});
  showList(stage);
  select(stage, 0);
}

void selected(PreviewStage& stage) {
  listOf<10>(stage);
  select(stage, 2);
}

void selectedByKey(PreviewStage& stage) {
  selected(stage);
  for (int i = 0; i < 4; ++i) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(stage.window(), &press);
  }
}

void selectedStale(PreviewStage& stage) {
  selected(stage);
  stage.manager()->setProcessSortMode(ProcessSortMode::peak);
}

void selectedWithoutPath(PreviewStage& stage) {
  stage.services().applications.add(4242, "No Path", 640U << 20U);
  showList(stage);
  select(stage, 0);
}

void askToKill(PreviewStage& stage) {
  QCoreApplication::processEvents();
  QMetaObject::invokeMethod(&stage.item("killSelection"), "clicked");
  pictureTransient(stage);
}

void confirmation(PreviewStage& stage) {
  selected(stage);
  askToKill(stage);
}

void confirmationLong(PreviewStage& stage) {
  longNames(stage);
  askToKill(stage);
}

void confirmationRightToLeft(PreviewStage& stage) {
  rightToLeftNames(stage);
  askToKill(stage);
}

void sortMenu(PreviewStage& stage) {
  listOf<10>(stage);
  QMetaObject::invokeMethod(&stage.item("sortMenu"), "clicked");
  pictureTransient(stage);
}

void contextMenu(PreviewStage& stage) {
  listOf<10>(stage);
  QMetaObject::invokeMethod(&rowItem(stage, 1), "menuRequested", Q_ARG(double, 120.0),
                            Q_ARG(double, 30.0));
  pictureTransient(stage);
}

void openDetails(PreviewStage& stage, int row = 0) {
  QMetaObject::invokeMethod(rowItem(stage, row).findChild<QQuickItem*>(QStringLiteral("info")),
                            "clicked");
  pictureTransient(stage);
}

template <int points>
void details(PreviewStage& stage) {
  list(stage, 3);
  stage.manager();
  for (int i = 0; i + 1 < points; ++i) {
    const double wave = 1312 - 500 * std::exp(-i / 12.0) + 90 * std::sin(i / 2.3);
    stage.services().applications.setResident(2101, static_cast<std::uint64_t>(wave) << 20U, 84);
    stage.advance(5);
  }
  stage.services().applications.setResident(2101, 1312U << 20U, 84);
  showList(stage);
  openDetails(stage);
}

void detailsFlat(PreviewStage& stage) {
  list(stage, 3);
  showList(stage, 23);
  openDetails(stage);
}

void detailsLong(PreviewStage& stage) {
  longNames(stage);
  openDetails(stage);
}

void detailsRightToLeft(PreviewStage& stage) {
  rightToLeftNames(stage);
  openDetails(stage);
}

void detailsUnknown(PreviewStage& stage) {
  stage.services().applications.add(4242, "No Path, no Threads", 640U << 20U, 0);
  showList(stage);
  openDetails(stage);
}

void focusOnInfo(PreviewStage& stage) {
  listOf<3>(stage);
  rowItem(stage, 1)
      .findChild<QQuickItem*>(QStringLiteral("info"))
      ->forceActiveFocus(Qt::TabFocusReason);
}

}  // namespace

std::vector<Scenario> processScenarios() {
  return {{"list-0", "list without applications", listOf<0>},
          {"list-3", "list of three applications", listOf<3>},
          {"list-10", "list of ten applications", listOf<10>},
          {"list-no-icons", "list of applications without icons", noIcons},
          {"list-long-names", "names and a path too long for their places", longNames},
          {"list-right-to-left", "names written from right to left", rightToLeftNames},
          {"list-selected", "an application is selected", selected},
          {"list-selected-key", "the selection moved down by key", selectedByKey, settled},
          {"list-selected-stale", "the selected record is of an earlier list", selectedStale},
          {"list-selected-pid", "an application without a path is selected", selectedWithoutPath},
          {"list-keyboard", "the keyboard on a row's details", focusOnInfo},
          {"kill-confirmation", "the question before a kill", confirmation},
          {"kill-confirmation-long", "the question about a long name", confirmationLong},
          {"kill-confirmation-right-to-left", "the question about a name from right to left",
           confirmationRightToLeft},
          {"sort-menu", "the sort menu", sortMenu},
          {"row-menu", "a row's context menu", contextMenu},
          {"details-1", "an application's details with one point: no chart", details<1>},
          {"details-2", "an application's details with two points", details<2>},
          {"details-12", "an application's details with a minute of history", details<12>},
          {"details-60", "an application's details with a full history", details<60>},
          {"details-flat", "an application's details with a flat history", detailsFlat},
          {"details-long", "details with a long name and path", detailsLong},
          {"details-right-to-left", "details with a name from right to left", detailsRightToLeft},
          {"details-unknown", "details without path and threads", detailsUnknown}};
}

}  // namespace orvane::preview
