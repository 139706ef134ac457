#include "ui/views.h"

#include <QQmlEngine>
#include <QQuickView>
#include <QSGRendererInterface>

#include "ui/dialogs/update_model.h"
#include "ui/icons/icon_provider.h"
#include "ui/model/main_window_actions.h"
#include "ui/model/memory_model.h"
#include "ui/model/popover_actions.h"
#include "ui/style/theme.h"

// Made by the build from the module's types; the call links them into the program.
void qml_register_types_Orvane();

namespace orvane {

Views::Views(std::shared_ptr<MemoryManager> manager, FileReader readFile)
    : manager_(std::move(manager)), readFile_(std::move(readFile)) {
  // The same scene costs a third of the memory without a graphics driver.
  if (QQuickWindow::sceneGraphBackend() != QStringLiteral("software")) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  }
}

Views::~Views() = default;

void Views::setColorScheme(std::optional<ColorScheme> scheme) {
  scheme_ = scheme;
  if (engine_) theme().setScheme(scheme_);
}

void Views::setTranslucentWindows(bool translucent) {
  translucentWindows_ = translucent;
  if (engine_) theme().setTranslucentWindows(translucent);
}

Theme& Views::theme() {
  return *engine().singletonInstance<Theme*>(qmlTypeId("Orvane", 1, 0, "Theme"));
}

QQmlEngine& Views::engine() {
  if (engine_) return *engine_;
  model_ = std::make_unique<MemoryModel>(manager_);
  qml_register_types_Orvane();
  engine_ = std::make_unique<QQmlEngine>();
  engine_->addImportPath(QStringLiteral(":/qt/qml"));
  engine_->addImageProvider(QLatin1String(IconProvider::providerId), new IconProvider(readFile_));
  theme().setScheme(scheme_);
  theme().setTranslucentWindows(translucentWindows_);
  return *engine_;
}

MemoryModel& Views::model() {
  engine();
  return *model_;
}

std::unique_ptr<QQuickView> Views::makeView(const QString& file, const QVariantMap& properties) {
  auto view = std::make_unique<QQuickView>(&engine(), nullptr);
  view->setColor(Qt::transparent);
  view->setInitialProperties(properties);
  view->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Orvane/") + file));
  return view;
}

std::unique_ptr<QQuickView> Views::makePopoverView(PopoverClosures closures) {
  auto actions = std::make_unique<PopoverActions>(std::move(closures));
  auto view = makeView(QStringLiteral("popover/StatusMenuView.qml"),
                       {{QStringLiteral("model"), QVariant::fromValue(&model())},
                        {QStringLiteral("actions"), QVariant::fromValue(actions.get())}});
  view->setResizeMode(QQuickView::SizeViewToRootObject);
  actions.release()->setParent(view.get());
  return view;
}

std::unique_ptr<QQuickView> Views::makeMainWindowView(MainWindowClosures closures) {
  auto actions = std::make_unique<MainWindowActions>(std::move(closures));
  auto view = makeView(QStringLiteral("main/MainWindowView.qml"),
                       {{QStringLiteral("model"), QVariant::fromValue(&model())},
                        {QStringLiteral("actions"), QVariant::fromValue(actions.get())}});
  actions.release()->setParent(view.get());
  return view;
}

std::unique_ptr<QQuickView> Views::makeUpdateView(UpdateClosures closures,
                                                  const std::string& runningVersion) {
  auto update = std::make_unique<UpdateModel>(std::move(closures), runningVersion);
  auto view = makeView(QStringLiteral("dialogs/UpdateView.qml"),
                       {{QStringLiteral("update"), QVariant::fromValue(update.get())}});
  view->setResizeMode(QQuickView::SizeViewToRootObject);
  update.release()->setParent(view.get());
  return view;
}

void Views::showUpdate(QQuickView& view, const std::optional<UpdateResult>& result) {
  auto* update = view.findChild<UpdateModel*>(QString(), Qt::FindDirectChildrenOnly);
  if (update == nullptr) return;
  if (result) {
    update->setResult(*result);
  } else {
    update->setChecking();
  }
}

std::unique_ptr<QQuickView> Views::makeAboutView(const ProductFacts& facts,
                                                 std::function<void()> close) {
  auto actions =
      std::make_unique<MainWindowActions>(MainWindowClosures{.closeWindow = std::move(close)});
  auto view = makeView(QStringLiteral("dialogs/AboutView.qml"),
                       {{QStringLiteral("actions"), QVariant::fromValue(actions.get())},
                        {QStringLiteral("version"), QString::fromStdString(facts.version)},
                        {QStringLiteral("builtOn"), QString::fromStdString(facts.builtOn)}});
  view->setResizeMode(QQuickView::SizeViewToRootObject);
  actions.release()->setParent(view.get());
  return view;
}

}  // namespace orvane
