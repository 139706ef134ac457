#include <algorithm>

#include "tests/ui/view_case.h"
#include "tests/unit/test_support.h"
#include "ui/model/process_record.h"

namespace orvane {
namespace {

class Processes : public ViewCase {
 protected:
  /// The list on the screen, with `count` applications of falling size and the pids 1, 2, ...
  void start(int count) {
    for (int pid = 1; pid <= count; ++pid) {
      services_.applications.add(pid, "Application " + std::to_string(pid),
                                 static_cast<std::uint64_t>(1000 - 10 * pid) * megabyte);
      services_.applications.paths[pid] = "/usr/bin/a" + std::to_string(pid);
    }
    createWindows();
    manager_->updateTopProcesses();
    createMainWindow();
    item("content").setProperty("selectedTab", 1);
    settle();
  }

  [[nodiscard]] QList<QQuickItem*> rows() const { return findAll(view_->contentItem(), "row"); }
  QQuickItem* row(int pid) {
    for (auto* row : rows())
      if (row->property("record").value<ProcessRecord>().pid() == pid) return row;
    return nullptr;
  }
  QQuickWindow* openDetails(int pid) {
    click(*findIn(row(pid), "info"));
    return openWindow();
  }

  void pressKey(Qt::Key key) {
    view_->requestActivate();  // no window manager gives the keyboard back after a dialog
    settle();
    pressKeys(view_, {key});
  }

  int selectedPid() const {
    return manager_->selectedProcess() ? manager_->selectedProcess()->pid : 0;
  }
  auto highlightedRows() const {
    return std::ranges::count_if(
        rows(), [](const QQuickItem* row) { return row->property("isSelected").toBool(); });
  }
};

/// Counts the keys that reach a window of the program.
class KeyCounter : public QWindow {
 public:
  int keys = 0;

 protected:
  void keyPressEvent(QKeyEvent* /*event*/) override { ++keys; }
};

TEST_F(Processes, MovesTheSelectionByKeyAndScrollsToItAwayFromOpenDetails) {
  start(10);
  QQuickItem& list = item("list");
  const auto scrolled = [&] { return list.property("contentY").toDouble(); };
  list.setProperty("contentY", 20.0);
  sample();
  EXPECT_EQ(scrolled(), 20.0);
  for (int i = 0; i < 2; ++i) pressKey(Qt::Key_Up);
  EXPECT_EQ(selectedPid(), 1);
  ASSERT_NE(openDetails(1), nullptr);
  for (int i = 0; i < 10; ++i) QTest::keyClick(openWindow(), Qt::Key_Down);
  EXPECT_EQ(selectedPid(), 10);
  EXPECT_EQ(highlightedRows(), 1);
  EXPECT_TRUE(waitUntil([] { return openWindow() == nullptr; })) << "details of a hidden row";
  const double end = list.property("contentHeight").toDouble() - list.height();
  EXPECT_TRUE(waitUntil([&] { return qAbs(scrolled() - end) < 1; })) << scrolled();
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
  item("content").setProperty("selectedTab", 0);
  settle();
  EXPECT_EQ(sent(Qt::Key_Up) + sent(Qt::Key_Down), 2);
  item("content").setProperty("selectedTab", 1);
  view_->hide();
  settle();
  EXPECT_EQ(sent(Qt::Key_Down), 1);
  view_->show();
  settle();
  EXPECT_EQ(sent(Qt::Key_Down), 0);
  windows_.reset();
  EXPECT_EQ(sent(Qt::Key_Down), 1);
}

TEST_F(Processes, ARebuildMatchesTheSelectionToNoRow) {
  start(3);
  click(*row(2));
  EXPECT_EQ(selectedPid(), 2);
  EXPECT_EQ(highlightedRows(), 1);
  EXPECT_FALSE(item("refresh").isEnabled());
  const auto openSortMenu = [this] {
    click(item("sortMenu"));
    return openWindow();
  };
  QQuickWindow* menu = openSortMenu();
  ASSERT_NE(menu, nullptr);
  pressKeys(menu, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
  EXPECT_EQ(manager_->processSortMode(), ProcessSortMode::peak);
  EXPECT_EQ(selectedPid(), 2) << "the arrows are the menu's";
  menu = openSortMenu();
  for (const auto& [entry, checked] : {std::pair("Current Memory", false), {"Peak Memory", true}}) {
    const auto state = QAccessible::queryAccessibleInterface(&item(entry, menu))->state();
    EXPECT_EQ(state.checked, checked) << entry;
  }
  QTest::keyClick(menu, Qt::Key_Escape);
  EXPECT_EQ(highlightedRows(), 0);
  EXPECT_EQ(text(item("selectionLocation")), "/usr/bin/a2");
  pressKey(Qt::Key_Down);
  EXPECT_EQ(selectedPid(), 1);
  pressKey(Qt::Key_Escape);
  EXPECT_EQ(selectedPid(), 0);
  EXPECT_EQ(find("selectionName"), nullptr);
  const int collections = services_.applications.collectionCount;
  click(item("refresh"));
  EXPECT_EQ(services_.applications.collectionCount, collections + 1);
}

TEST_F(Processes, KillsOnlyAfterTheQuestion) {
  start(3);
  click(*row(2));
  pressKey(Qt::Key_Return);
  ASSERT_NE(openWindow(), nullptr);
  QTest::keyClick(openWindow(), Qt::Key_Escape);
  EXPECT_TRUE(waitUntil([] { return openWindow() == nullptr; }));
  pressKey(Qt::Key_Return);
  ASSERT_NE(openWindow(), nullptr);
  view_->hide();
  EXPECT_TRUE(waitUntil([] { return openWindow() == nullptr; })) << "goes with its window";
  EXPECT_TRUE(services_.applications.killed.empty());
  view_->show();
  settle();
  click(item("killSelection"));
  ASSERT_NE(openWindow(), nullptr);
  EXPECT_EQ(
      text(item("message", openWindow())),
      "Are you sure you want to kill '\u2068Application 2\u2069'? Unsaved data will be lost.");
  click(item("kill", openWindow()));
  EXPECT_EQ(services_.applications.killed, std::vector<std::int32_t>{2});
  EXPECT_EQ(selectedPid(), 0);
}

TEST_F(Processes, TheContextMenuAsksAboutItsOwnRow) {
  start(3);
  click(*row(1));
  expectSymbols();
  const QPointF at = row(3)->mapToScene({60, 20});
  QTest::mouseClick(view_, Qt::RightButton, {}, at.toPoint());
  settle();
  QQuickWindow* menu = openWindow();
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->position(), view_->mapToGlobal(at.toPoint()) + QPoint(0, 1));
  pressKeys(menu, {Qt::Key_Down, Qt::Key_Return});
  ASSERT_NE(openWindow(), nullptr);
  EXPECT_EQ(selectedPid(), 1);
  click(item("kill", openWindow()));
  EXPECT_EQ(services_.applications.killed, std::vector<std::int32_t>{3});
  pressKey(Qt::Key_Down);
  pressKey(Qt::Key_Menu);
  EXPECT_NE(openWindow(), nullptr);
}

TEST_F(Processes, ShowsDetailsThatFollowTheHistoryAndTheRow) {
  start(2);
  view_->setPosition(0, 200);
  QQuickWindow* details = openDetails(1);
  ASSERT_NE(details, nullptr);
  EXPECT_FALSE(item("historySection", details).isVisible());
  const int height = details->height();
  sample();
  ASSERT_EQ(openWindow(), details);
  EXPECT_TRUE(item("historySection", details).isVisible());
  EXPECT_TRUE(waitUntil([&] { return details->height() > height; }));
  click(item("reveal", details));
  EXPECT_EQ(shell_.revealed, std::vector<std::string>{"/usr/bin/a1"});
  EXPECT_TRUE(waitUntil([] { return openWindow() == nullptr; })) << "the file manager's turn";
  details = openDetails(1);
  ASSERT_NE(details, nullptr);
  services_.applications.paths.clear();
  services_.applications.setResident(1, 900 * megabyte, 0);
  sample();
  EXPECT_FALSE(item("locationSection", details).isVisible());
  EXPECT_FALSE(item("threadSection", details).isVisible());
  const auto middle = [this] { return row(1)->mapToGlobal({0, row(1)->height() / 2}).y(); };
  EXPECT_TRUE(waitUntil([&] {
    return row(1)->y() > row(2)->y() &&
           qAbs(details->y() + details->height() / 2.0 - middle()) <= 1;
  }));
  pressKeys(details, {Qt::Key_Escape});
  EXPECT_EQ(openWindow(), nullptr);
}

TEST_F(Processes, TextFromRightToLeftStandsWhereAllTextStands) {
  services_.applications.add(7, "\u05E2\u05D5\u05E8\u05DA Pro", 1200 * megabyte);
  services_.applications.paths[7] = "/\u05E2\u05D5\u05E8\u05DA";
  start(1);
  click(*row(7));
  const auto* details = openDetails(7);
  ASSERT_NE(details, nullptr);
  for (const auto* text : {findIn(row(7), "name"), find("selectionName"), find("selectionLocation"),
                           find("detailsName", details), find("path", details)}) {
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->property("effectiveHorizontalAlignment").toInt(), Qt::AlignLeft)
        << qPrintable(text->objectName());
  }
}

TEST_F(Processes, AnIconThatCannotBeShownIsThePlaceholderWithoutAWord) {
  start(0);
  const TestDirectory folder;
  const std::string good = folder.path("good.png");
  QImage(4, 4, QImage::Format_RGB32).save(QString::fromStdString(good));
  int pid = 7;
  for (const std::string& file : {makePipe(folder.path("pipe.png")),
                                  folder.write("broken.svg", "<svg><image href='x'/>"), good}) {
    services_.applications.add(pid, file, static_cast<std::uint64_t>(4000 - pid) * megabyte);
    services_.applications.applications.back().icon = ApplicationIcon{file};
    ++pid;
  }
  services_.applications.add(pid, "None", megabyte * 1000);
  testing::internal::CaptureStderr();
  manager_->updateTopProcesses();
  const auto shown = [this] {
    QList<bool> pictures;
    for (const auto* row : rows()) pictures << findIn(row, "picture")->isVisible();
    return pictures;
  };
  EXPECT_TRUE(waitUntil([&] { return shown() == QList<bool>{false, false, true, false}; }));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace orvane
