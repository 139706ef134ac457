#include "ui/windows/window_controller.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPalette>
#include <QQmlComponent>
#include <QSGRendererInterface>
#include <QScreen>

#include <cmath>
#include <utility>

#include "ui/icons/icon_provider.h"
#include "ui/style/palette.h"
#include "ui/style/theme.h"
#include "ui/windows/window_geometry.h"

// Made by the build from the module's types; the call links them into the program.
void qml_register_types_Orvane();

namespace orvane {
namespace {

// At most, from the press on the panel that takes the focus away to the panel's Activate.
constexpr int sameClickMilliseconds = 400;
// At most, from showing a window to the window manager's word where it is.
constexpr int placingMilliseconds = 1000;

/// Not in QML: the first `Qt.Window | ...` there makes a table of all of Qt's enumerators, 0.2 MB.
Qt::WindowFlags flagsOf(WindowKind kind) {
  switch (kind) {
    case WindowKind::popover:
      return Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
             Qt::NoDropShadowWindowHint;
    case WindowKind::main:
      return Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
             Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
    case WindowKind::update:
    case WindowKind::about:
      break;
  }
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
}

void bringToFront(QWindow& window) {
  window.showNormal();
  window.raise();
  window.requestActivate();
}

/// Puts a hidden window's frame there. xfwm4 moves a window that isn't wholly on the screen when it
/// shows it; what it is told afterwards it does.
void restorePlace(QWindow& window, QPoint frame) {
  window.setFramePosition(frame);
  const auto placeAgain = [&window, frame, end = QDeadlineTimer(placingMilliseconds)] {
    if (!end.hasExpired() && window.framePosition() != frame) window.setFramePosition(frame);
  };
  QObject::connect(&window, &QWindow::yChanged, &window, placeAgain, Qt::SingleShotConnection);
}

bool isOnWayland() {
  return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

/// Where Qt draws the windows' frames itself (GNOME on Wayland) it takes the palette's colours.
void colorFrames(std::optional<ColorScheme> scheme) {
  QPalette frames;
  if (scheme) {
    frames.setColor(QPalette::Window, palette(*scheme).windowBackground);
    frames.setColor(QPalette::WindowText, palette(*scheme).label);
  }
  QGuiApplication::setPalette(frames);
  if (!isOnWayland()) return;
  // A frame reads the palette when it is made.
  const QWindowList windows = QGuiApplication::topLevelWindows();
  for (QWindow* window : windows) {
    if (!window->isVisible() || (window->flags() & Qt::FramelessWindowHint) != 0) continue;
    window->setFlag(Qt::FramelessWindowHint, true);
    window->setFlag(Qt::FramelessWindowHint, false);
  }
}

}  // namespace

WindowController::WindowController(Shell& shell, std::shared_ptr<MemoryManager> manager,
                                   DesktopFunctions desktop, ProductFacts facts)
    : shell_(shell),
      manager_(std::move(manager)),
      desktop_(std::move(desktop)),
      facts_(std::move(facts)) {
  // The same scene costs a third of the memory without a graphics driver.
  if (QQuickWindow::sceneGraphBackend() != QStringLiteral("software"))
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

WindowController::~WindowController() {
  // A window destroyed after this body would send signals to destroyed members.
  for (auto& [kind, window] : windows_) window->disconnect(this);
}

QQmlEngine& WindowController::engine() {
  if (engine_) return *engine_;
  model_ = std::make_unique<MemoryModel>(manager_);
  qml_register_types_Orvane();
  engine_ = std::make_unique<QQmlEngine>();
  engine_->addImportPath(QStringLiteral(":/qt/qml"));
  engine_->addImageProvider(QLatin1String(IconProvider::providerId),
                            new IconProvider(desktop_.drawIcon));
  applyAppearance();
  QCoreApplication::instance()->installEventFilter(this);
  return *engine_;
}

Theme& WindowController::theme() {
  return *engine().singletonInstance<Theme*>(qmlTypeId("Orvane", 1, 0, "Theme"));
}

void WindowController::setAppearance(const AppearanceSettings& settings) {
  if (settings.colorScheme != appearance_.colorScheme) colorFrames(settings.colorScheme);
  appearance_ = settings;
  if (engine_) applyAppearance();
}

void WindowController::applyAppearance() {
  theme().setAppearance(appearance_);
  engine()
      .singletonInstance<Motion*>(qmlTypeId("Orvane", 1, 0, "Motion"))
      ->setReduced(appearance_.reducedMotion);
}

void WindowController::followCompositor() {
  theme().setTranslucentWindows(desktop_.blendsTranslucentWindows());
}

// Windows.

QQuickWindow* WindowController::window(WindowKind kind) const {
  const auto found = windows_.find(kind);
  return found == windows_.end() ? nullptr : found->second.get();
}

QQuickWindow* WindowController::make(WindowKind kind, const char* file, QVariantMap properties) {
  followCompositor();
  QQmlComponent component(&engine(),
                          QUrl(QStringLiteral("qrc:/qt/qml/Orvane/") + QLatin1String(file)));
  properties.insert(QStringLiteral("windows"), QVariant::fromValue(this));
  std::unique_ptr<QObject> made(component.createWithInitialProperties(properties));
  auto* window = qobject_cast<QQuickWindow*>(made.get());
  if (window == nullptr) {
    qWarning("No window: %s", qUtf8Printable(component.errorString()));
    return nullptr;
  }
  window->setFlags(flagsOf(kind));
  windows_[kind].reset(qobject_cast<QQuickWindow*>(made.release()));
  connect(window, &QWindow::activeChanged, this, [this, window, kind] {
    if (window->isActive()) shell_.windowDidBecomeKey(kind);
  });
  return window;
}

QQuickWindow* WindowController::makeTransient(WindowKind kind, const char* file,
                                              QVariantMap properties) {
  QQuickWindow* window = make(kind, file, std::move(properties));
  if (window == nullptr) return nullptr;
  connect(window, &QWindow::visibleChanged, this, [this, kind](bool visible) {
    if (!visible) discard(kind);
  });
  return window;
}

void WindowController::discard(WindowKind kind) {
  // The window may be in the middle of the event that closes it.
  closed_.push_back(std::move(windows_[kind]));
  windows_.erase(kind);
  closed_.back()->disconnect(this);
  QMetaObject::invokeMethod(
      this, [this] { closed_.clear(); }, Qt::QueuedConnection);
  shell_.windowWillClose(kind);
}

bool WindowController::showPopover(ScreenPoint item) {
  closePopover();
  QQuickWindow* popover = makeTransient(WindowKind::popover, "windows/PopoverWindow.qml",
                                        {{QStringLiteral("statusItem"), QPoint(item.x, item.y)}});
  if (popover == nullptr) return false;
  desktop_.skipTaskbar(*popover);
  desktop_.setShadowExtents(*popover, static_cast<int>(std::lround(theme().shadowMargin() *
                                                                   popover->devicePixelRatio())));
  // A window of its own may come up under the main one on Wayland.
  QQuickWindow* main = window(WindowKind::main);
  if (main != nullptr && main->isVisible() && isOnWayland()) popover->setTransientParent(main);
  popover->show();
  popover->requestActivate();
  return true;
}

void WindowController::closePopover() {
  sinceDismissal_.invalidate();
  if (QQuickWindow* popover = window(WindowKind::popover)) popover->hide();
}

// On X11 the popover holds the mouse: no click on the item takes its focus away first.
void WindowController::dismissPopover(bool left) {
  closePopover();
  if (left && QGuiApplication::platformName() != QLatin1String("xcb")) sinceDismissal_.start();
}

bool WindowController::isPopoverShown() const {
  return window(WindowKind::popover) != nullptr ||
         (sinceDismissal_.isValid() && !sinceDismissal_.hasExpired(sameClickMilliseconds));
}

bool WindowController::showMainWindow() {
  followCompositor();
  QQuickWindow* main = window(WindowKind::main);
  const QList<ScreenArea> screens = screenAreas();
  if (main == nullptr) {
    main = make(WindowKind::main, "windows/MainWindow.qml");
    if (main == nullptr) return false;
    main->setHeight(fittingHeight(main->height(), screenArea(*main->screen())));
    main->setPosition(centredPosition(main->size(), main->screen()->availableGeometry()));
  } else if (!main->isVisible() && framePlace_ && !screens.isEmpty()) {
    restorePlace(*main, windowPosition(*framePlace_, main->size(), screens));
  }
  bringToFront(*main);
  return true;
}

void WindowController::hideMainWindow() {
  QQuickWindow* main = window(WindowKind::main);
  if (main == nullptr || !main->isVisible()) return;
  framePlace_ = main->framePosition();
  main->hide();
  desktop_.forgetMinimized(*main);
}

bool WindowController::showDialog(WindowKind kind, const char* file) {
  QQuickWindow* dialog = window(kind);
  if (dialog == nullptr) {
    dialog = makeTransient(kind, file);
    if (dialog == nullptr) return false;
    dialog->setPosition(centredPosition(dialog->size(), dialog->screen()->availableGeometry()));
  }
  bringToFront(*dialog);
  return true;
}

void WindowController::showAbout() {
  showDialog(WindowKind::about, "dialogs/AboutWindow.qml");
}

bool WindowController::showUpdateCheck() {
  result_.reset();
  Q_EMIT updateChanged();
  return showDialog(WindowKind::update, "dialogs/UpdateWindow.qml");
}

void WindowController::showUpdateResult(const UpdateResult& result) {
  if (window(WindowKind::update) == nullptr) return;
  result_ = result;
  Q_EMIT updateChanged();
}

// For QML.

void WindowController::setMainWindowVisible(bool visible) {
  shell_.setMainWindowVisible(visible);
  Q_EMIT changed();
}

void WindowController::setLaunchAtLogin(bool enabled) {
  shell_.setLaunchAtLoginPreference(enabled);
  Q_EMIT changed();
}

void WindowController::revealExecutable(const ProcessRecord& record) {
  if (record.isValid() && !record.info()->processPath.empty())
    shell_.revealFile(record.info()->processPath);
}

QVariantList WindowController::panelFrames() const {
  QVariantList frames;
  for (const QRect& frame : desktop_.panelFrames()) frames.append(frame);
  return frames;
}

bool WindowController::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWindowType()) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.modifiers() != Qt::ControlModifier || key.isAutoRepeat()) return false;
  if (key.key() == Qt::Key_Q) shell_.quitApp();
  if (key.key() == Qt::Key_U) shell_.checkForUpdates();
  return key.key() == Qt::Key_Q || key.key() == Qt::Key_U;
}

UpdateTexts WindowController::update() const {
  return result_ ? updateResultTexts(*result_, facts_.version) : updateCheckingTexts();
}

bool WindowController::acceptUpdate() {
  if (!result_) return false;
  if (std::holds_alternative<UpdateError>(*result_)) {
    shell_.checkForUpdates();
    return false;
  }
  if (const auto* offer = std::get_if<UpdateOffer>(&*result_)) shell_.openUrl(offer->downloadPage);
  return true;
}

}  // namespace orvane
