#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <memory>
#include <string>

#include "platform/linux/runtime/bounded_process.h"
#include "testing/fake_services.h"
#include "testing/recording_shell.h"
#include "tests/unit/test_support.h"
#include "ui/painted/symbol.h"
#include "ui/windows/window_controller.h"

namespace orvane {

constexpr std::uint64_t megabyte = 1U << 20U;

inline QByteArray drawIconApart(const IconRequest& request) {
  return outputOf(ORVANE_ICON_DRAWER, request.arguments());
}

/// A view of the real UI on fake services, and the ways to find, press and click what is in it.
class ViewCase : public testing::Test {
 protected:
  ViewCase() {
    services_.claims.refuses = true;  // a boost takes no real memory here
    services_.counters.bytesPerPage = megabyte;
    memory_ = {4096, 6144, 3072, 3072, 1024};
  }

  void createWindows() {
    manager_ = MemoryManager::create(services_.services());
    windows_ = std::make_unique<WindowController>(
        shell_, manager_, DesktopFunctions{.drawIcon = drawIconApart}, ProductFacts{"1.4.2", "Qt"});
    windows_->setAppearance({.colorScheme = ColorScheme::light});
  }
  void createMainWindow() {
    windows_->showMainWindow();
    view_ = windows_->window(WindowKind::main);
  }
  static void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
  }
  /// Lets the sampling tick pass.
  void sample() {
    services_.time.advance(samplingInterval);
    settle();
  }

  /// All items of a name, from the top of the tree, in the order in which they were made.
  static QList<QQuickItem*> findAll(const QQuickItem* in, const char* name) {
    QList<QQuickItem*> found;
    for (QQuickItem* child : in->childItems()) {
      if (child->objectName() == QLatin1String(name)) found << child;
      found << findAll(child, name);
    }
    return found;
  }
  static QQuickItem* findIn(const QQuickItem* in, const char* name) {
    return findAll(in, name).value(0);
  }
  [[nodiscard]] QQuickItem* find(const char* name, const QQuickWindow* window = nullptr) const {
    return findIn((window == nullptr ? view_ : window)->contentItem(), name);
  }
  [[nodiscard]] QQuickItem& item(const char* name, const QQuickWindow* window = nullptr) const {
    QQuickItem* found = find(name, window);
    if (found == nullptr) qFatal("no item %s", name);
    return *found;
  }
  [[nodiscard]] static std::string text(const QQuickItem& of) {
    return of.property("text").toString().toStdString();
  }
  [[nodiscard]] static std::string accessibleName(QQuickItem& of) {
    return QAccessible::queryAccessibleInterface(&of)->text(QAccessible::Name).toStdString();
  }
  /// In the window.
  [[nodiscard]] static QRectF place(const QQuickItem& of) {
    return of.mapRectToScene(QRectF(QPointF(), of.size()));
  }

  /// None of the view's symbols is of a name without a drawing.
  void expectSymbols() const {
    const auto symbols = view_->findChildren<Symbol*>();
    EXPECT_GT(symbols.size(), 2);
    for (const auto* symbol : symbols) {
      const QString name = symbol->property("name").toString();
      EXPECT_TRUE(name.isEmpty() || !Symbol::drawing(name).isEmpty()) << qPrintable(name);
    }
  }

  /// Through assistive technology.
  static void press(QQuickItem& item) {
    auto* actions = QAccessible::queryAccessibleInterface(&item)->actionInterface();
    actions->doAction(QAccessibleActionInterface::pressAction());
    settle();
  }
  static void pressKeys(QWindow* window, std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys) QTest::keyClick(window, key);
    settle();
  }
  static void click(QQuickItem& target) {
    QTest::mouseClick(target.window(), Qt::LeftButton, {}, place(target).center().toPoint());
    settle();
  }
  /// The menu, dialog or popover that is open; null when none is.
  static QQuickWindow* openWindow() {
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
      if (window->isVisible() && window->transientParent() != nullptr)
        return qobject_cast<QQuickWindow*>(window);
    }
    return nullptr;
  }

  fakes::FakeServices services_;
  std::optional<PageCounts>& memory_ = services_.counters.counts;  ///< in MB
  std::shared_ptr<MemoryManager> manager_;
  fakes::RecordingShell shell_;
  std::unique_ptr<WindowController> windows_;
  QQuickWindow* view_ = nullptr;  ///< of `windows_`
};

}  // namespace orvane
