#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <QTest>
#include <algorithm>

#include "tests/fakes/fake_services.h"
#include "ui/views.h"

namespace orvane {
namespace {

constexpr std::uint64_t megabyte = 1048576;

class Processes : public testing::Test {
 protected:
  /// The list on the screen, with `count` applications of falling size and the pids 1, 2, ...
  void start(int count) {
    for (int pid = 1; pid <= count; ++pid) {
      fakes_.applications.add(pid, "Application " + std::to_string(pid),
                              static_cast<std::uint64_t>(1000 - 10 * pid) * megabyte);
      fakes_.applications.paths[pid] = "/usr/bin/a" + std::to_string(pid);
    }
    manager_ = MemoryManager::create(fakes_.services());
    manager_->updateTopProcesses();
    views_ = std::make_unique<Views>(manager_);
    view_ = views_->makeMainWindowView(
        {.revealFile = [this](const std::string& path) { revealed_ = path; }});
    view_->show();
    item("content")->setProperty("selectedTab", 1);
    settle();
  }

  static void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
  }

  static QQuickItem* find(QQuickItem* in, const QString& name) {
    for (QQuickItem* child : in->childItems()) {
      if (child->objectName() == name) return child;
      if (auto* found = find(child, name)) return found;
    }
    return nullptr;
  }
  [[nodiscard]] QQuickItem* item(const char* name, const QQuickWindow* window = nullptr) const {
    auto* in = (window == nullptr ? view_.get() : window)->contentItem();
    auto* found = find(in, QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  [[nodiscard]] bool has(const char* name) const {
    return find(view_->contentItem(), QLatin1String(name)) != nullptr;
  }

  /// The rows of the list, in the order in which they were made.
  [[nodiscard]] static QList<QQuickItem*> rows(const QQuickItem* parent) {
    QList<QQuickItem*> found;
    for (QQuickItem* child : parent->childItems()) {
      if (child->objectName() == QStringLiteral("row")) found << child;
      found << rows(child);
    }
    return found;
  }
  QQuickItem* row(const QString& name) {
    for (auto* row : rows(view_->contentItem())) {
      if (row->property("name").toString() == name) return row;
    }
    return nullptr;
  }
  QQuickItem* row(int pid) { return row(QStringLiteral("Application %1").arg(pid)); }

  void press(int key) {
    view_->requestActivate();  // no window manager gives the keyboard back after a dialog
    settle();
    QTest::keyClick(view_.get(), static_cast<Qt::Key>(key));
    settle();
  }
  static void click(QQuickItem* target) {
    const QPointF centre = target->mapToScene({target->width() / 2, target->height() / 2});
    QTest::mouseClick(target->window(), Qt::LeftButton, {}, centre.toPoint());
    settle();
  }

  /// The menu, dialog or popover that is open; null when none is.
  static QQuickWindow* openWindow() {
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
      if (window->isVisible() && window->transientParent() != nullptr) {
        return qobject_cast<QQuickWindow*>(window);
      }
    }
    return nullptr;
  }

  int selectedPid() const {
    return manager_->selectedProcess() ? manager_->selectedProcess()->pid : 0;
  }
  int highlightedRows() const {
    const auto all = rows(view_->contentItem());
    return static_cast<int>(std::count_if(all.begin(), all.end(), [](const QQuickItem* row) {
      return row->property("isSelected").toBool();
    }));
  }

  fakes::FakeServices fakes_;
  std::shared_ptr<MemoryManager> manager_;
  std::unique_ptr<Views> views_;
  std::unique_ptr<QQuickView> view_;
  std::string revealed_;
};

/// Counts the keys that reach a window of the program.
class KeyCounter : public QWindow {
 public:
  int keys = 0;

 protected:
  void keyPressEvent(QKeyEvent* /*event*/) override { ++keys; }
};

TEST_F(Processes, MovesTheSelectionByKeyAndScrollsToIt) {
  start(10);
  press(Qt::Key_Up);
  EXPECT_EQ(selectedPid(), 1);
  press(Qt::Key_Up);
  EXPECT_EQ(selectedPid(), 1);
  for (int i = 0; i < 12; ++i) press(Qt::Key_Down);
  EXPECT_EQ(selectedPid(), 10);
  EXPECT_EQ(highlightedRows(), 1);
  QQuickItem* list = item("list");
  const double end = list->property("contentHeight").toDouble() - list->height();
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return qAbs(list->property("contentY").toDouble() - end) < 1; }));
}

TEST_F(Processes, KeepsAClickedRowInSight) {
  start(10);
  QQuickItem* list = item("list");
  const auto bottom = [&](int pid) {
    return row(pid)->mapToItem(list, {0, row(pid)->height()}).y();
  };
  const int pid = static_cast<int>(list->height() / bottom(1));
  ASSERT_LE(bottom(pid), list->height());
  click(row(pid));
  EXPECT_TRUE(QTest::qWaitFor([&] { return bottom(pid) <= list->height(); }));
  EXPECT_TRUE(has("selectionName"));
}

TEST_F(Processes, TakesTheArrowsFromEveryWindowExactlyWhileOnScreen) {
  start(0);
  KeyCounter other;
  other.show();
  const auto sent = [&](Qt::Key key) {
    const int before = other.keys;
    QTest::keyClick(&other, key);
    return other.keys - before;
  };
  EXPECT_EQ(sent(Qt::Key_Up) + sent(Qt::Key_Down), 0);
  EXPECT_EQ(sent(Qt::Key_A) + sent(Qt::Key_Tab) + sent(Qt::Key_Return), 3);
  item("content")->setProperty("selectedTab", 0);
  settle();
  EXPECT_EQ(sent(Qt::Key_Up) + sent(Qt::Key_Down), 2);
  item("content")->setProperty("selectedTab", 1);
  settle();
  EXPECT_EQ(sent(Qt::Key_Down), 0);
  view_->hide();
  settle();
  EXPECT_EQ(sent(Qt::Key_Down), 1);
  view_->show();
  settle();
  EXPECT_EQ(sent(Qt::Key_Down), 0);
  view_.reset();
  EXPECT_EQ(sent(Qt::Key_Down), 1);
}

TEST_F(Processes, LeavesTheArrowsToAnOpenMenu) {
  start(3);
  click(item("sortMenu"));
  QQuickWindow* menu = openWindow();
  ASSERT_NE(menu, nullptr);
  for (int i = 0; i < 3; ++i) QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  settle();
  EXPECT_EQ(manager_->processSortMode(), ProcessSortMode::peak);
  EXPECT_EQ(selectedPid(), 0);
  EXPECT_EQ(openWindow(), nullptr);
}

TEST_F(Processes, ARebuildMatchesTheSelectionToNoRow) {
  start(3);
  click(row(2));
  EXPECT_EQ(selectedPid(), 2);
  EXPECT_EQ(highlightedRows(), 1);
  EXPECT_FALSE(item("refresh")->isEnabled());
  manager_->setProcessSortMode(ProcessSortMode::average);
  settle();
  EXPECT_EQ(highlightedRows(), 0);
  EXPECT_EQ(item("selectionLocation")->property("text").toString(), QStringLiteral("/usr/bin/a2"));
  press(Qt::Key_Down);
  EXPECT_EQ(selectedPid(), 1);
  press(Qt::Key_Escape);
  EXPECT_EQ(selectedPid(), 0);
  EXPECT_FALSE(has("selectionName"));
  const int collections = fakes_.applications.collectionCount;
  click(item("refresh"));
  EXPECT_EQ(fakes_.applications.collectionCount, collections + 1);
}

TEST_F(Processes, ARebuildKeepsTheRowsOfTheApplicationsAndTheScrolling) {
  start(10);
  QQuickItem* kept = row(2);
  QQuickItem* list = item("list");
  list->setProperty("contentY", 40.0);
  fakes_.applications.remove(1);
  fakes_.applications.setResident(2, 100 * megabyte);
  fakes_.applications.add(77, "New", 2000 * megabyte);
  fakes_.time.advance(samplingInterval);
  settle();
  EXPECT_EQ(row(2), kept);
  EXPECT_EQ(row(1), nullptr);
  EXPECT_TRUE(QTest::qWaitFor([&] { return kept->y() > row(10)->y(); }));
  EXPECT_LT(row(QStringLiteral("New"))->y(), row(3)->y());
  EXPECT_EQ(kept->property("memoryText").toString(), QStringLiteral("100 MB"));
  EXPECT_EQ(list->property("contentY").toDouble(), 40.0);
}

TEST_F(Processes, KillsOnlyAfterTheQuestion) {
  start(3);
  click(row(2));
  // Escape answers no, and so does Return: the safe button has the keyboard.
  for (const Qt::Key no : {Qt::Key_Escape, Qt::Key_Return}) {
    press(Qt::Key_Return);
    QQuickWindow* dialog = openWindow();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->modality(), Qt::WindowModal);
    EXPECT_EQ(item("message", dialog)->property("text").toString(),
              QStringLiteral(
                  "Are you sure you want to kill 'Application 2'? Unsaved data will be lost."));
    QTest::keyClick(dialog, no);
    settle();
    EXPECT_EQ(openWindow(), nullptr);
    EXPECT_TRUE(fakes_.signals.killed.empty());
    EXPECT_EQ(selectedPid(), 2);
  }
  press(Qt::Key_Return);
  view_->hide();
  EXPECT_TRUE(QTest::qWaitFor([] { return openWindow() == nullptr; }));
  view_->show();
  settle();
  fakes_.signals.onKill = [this](std::int32_t pid) { fakes_.applications.remove(pid); };
  click(item("killSelection"));
  ASSERT_NE(openWindow(), nullptr);
  click(item("kill", openWindow()));
  EXPECT_EQ(openWindow(), nullptr);
  EXPECT_EQ(fakes_.signals.killed, std::vector<std::int32_t>{2});
  EXPECT_EQ(selectedPid(), 0);
  EXPECT_NE(row(2), nullptr);
  fakes_.time.advance(terminationRefreshDelay);
  settle();
  EXPECT_EQ(row(2), nullptr);
}

TEST_F(Processes, TheContextMenuAsksAboutItsOwnRow) {
  start(3);
  click(row(1));
  const QPointF at = row(3)->mapToScene({60, 20});
  QTest::mouseClick(view_.get(), Qt::RightButton, {}, at.toPoint());
  settle();
  QQuickWindow* menu = openWindow();
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->position(), view_->mapToGlobal(at.toPoint()) + QPoint(0, 1));
  EXPECT_EQ(selectedPid(), 1);
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  settle();
  ASSERT_NE(openWindow(), nullptr);
  EXPECT_EQ(selectedPid(), 1);
  click(item("kill", openWindow()));
  EXPECT_EQ(fakes_.signals.killed, std::vector<std::int32_t>{3});
  EXPECT_EQ(selectedPid(), 0);

  press(Qt::Key_Down);
  press(Qt::Key_Menu);
  EXPECT_NE(openWindow(), nullptr);
}

TEST_F(Processes, ShowsDetailsThatFollowTheHistoryAndTheRow) {
  start(2);
  view_->setPosition(0, 200);
  click(find(row(1), QStringLiteral("info")));
  QQuickWindow* details = openWindow();
  ASSERT_NE(details, nullptr);
  EXPECT_EQ(details->width(), 360 + 9);
  EXPECT_FALSE(item("historySection", details)->isVisible());
  const int height = details->height();
  fakes_.time.advance(samplingInterval);
  settle();
  ASSERT_EQ(openWindow(), details);
  EXPECT_TRUE(item("historySection", details)->isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return details->height() > height; }));
  click(item("reveal", details));
  EXPECT_EQ(revealed_, "/usr/bin/a1");
  EXPECT_TRUE(QTest::qWaitFor([] { return openWindow() == nullptr; })) << "the file manager's turn";
  click(find(row(1), QStringLiteral("info")));
  details = openWindow();
  ASSERT_NE(details, nullptr);
  fakes_.applications.paths.clear();
  fakes_.applications.setResident(1, 900 * megabyte, 0);
  fakes_.time.advance(samplingInterval);
  settle();
  EXPECT_FALSE(item("locationSection", details)->isVisible());
  EXPECT_FALSE(item("threadSection", details)->isVisible());
  const auto middle = [this] { return row(1)->mapToGlobal({0, row(1)->height() / 2}).y(); };
  EXPECT_TRUE(QTest::qWaitFor([&] {
    return row(1)->y() > row(2)->y() &&
           qAbs(details->y() + details->height() / 2.0 - middle()) <= 1;
  }));
  QTest::keyClick(details, Qt::Key_Escape);
  settle();
  EXPECT_EQ(openWindow(), nullptr);
}

TEST_F(Processes, ClosesTheDetailsOfARowThatIsScrolledAway) {
  start(10);
  click(find(row(1), QStringLiteral("info")));
  ASSERT_NE(openWindow(), nullptr);
  for (int i = 0; i < 10; ++i) QTest::keyClick(openWindow(), Qt::Key_Down);
  EXPECT_EQ(selectedPid(), 10);
  EXPECT_TRUE(QTest::qWaitFor([] { return openWindow() == nullptr; }));
}

TEST_F(Processes, PutsDetailsBesideTheirButtonInsideTheScreen) {
  start(1);
  QQuickItem* info = find(row(1), QStringLiteral("info"));
  const QRect screen = view_->screen()->availableGeometry();
  for (const bool atRightEdge : {false, true}) {
    view_->setPosition(atRightEdge ? screen.right() - view_->width() : screen.left(), 0);
    settle();
    click(info);
    const QQuickWindow* details = openWindow();
    ASSERT_NE(details, nullptr);
    const QRectF button(info->mapToGlobal({0, 0}), info->size());
    const bool fitsAfter = button.right() + details->width() <= screen.right();
    EXPECT_EQ(details->x(), fitsAfter ? button.right() : button.left() - details->width());
    EXPECT_TRUE(screen.contains(details->geometry()));
    QTest::keyClick(openWindow(), Qt::Key_Escape);
    settle();
  }
}

}  // namespace
}  // namespace orvane
