#include "tests/ui/view_case.h"

namespace orvane {
namespace {

class WindowsTest : public ViewCase {
 protected:
  WindowsTest() { createWindows(); }

  void pressKey(WindowKind kind, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(windows_->window(kind), key, modifiers);
    settle();
  }
};

TEST_F(WindowsTest, TheUpdateWindowFollowsTheCheckAndItsButtonsAnswer) {
  const auto window = [this] { return windows_->window(WindowKind::update); };
  windows_->showUpdateResult(UpdateNotNeeded{});
  EXPECT_EQ(window(), nullptr) << "a check whose window was closed";
  windows_->showUpdateCheck();
  const QQuickWindow* opened = window();
  const int height = opened->height();
  pressKey(WindowKind::update, Qt::Key_Return);
  EXPECT_EQ(window(), opened) << "there is nothing to answer yet";
  windows_->showUpdateResult(UpdateError{.message = "No answer."});
  pressKey(WindowKind::update, Qt::Key_Return);
  EXPECT_EQ(shell_.checks, 1);
  windows_->showUpdateCheck();
  EXPECT_EQ(window(), opened);
  windows_->showUpdateResult(UpdateOffer{.version = "2.0",
                                         .downloadBytes = std::nullopt,
                                         .notes = "News.",
                                         .downloadPage = "https://orvane.example/"});
  EXPECT_TRUE(eventually([&] { return window()->height() > height; }));
  EXPECT_EQ(window()->maximumSize(), window()->size());
  pressKey(WindowKind::update, Qt::Key_Return);
  EXPECT_EQ(window(), nullptr);
  EXPECT_EQ(shell_.urls, std::vector<std::string>{"https://orvane.example/"});
  EXPECT_EQ(shell_.closed, std::vector{WindowKind::update});
}

TEST_F(WindowsTest, EscapeAndControlWCloseAndOneOpensOnlyOnce) {
  for (const auto& [key, modifiers] : {std::pair(Qt::Key_Escape, Qt::KeyboardModifiers()),
                                       {Qt::Key_W, Qt::ControlModifier},
                                       {Qt::Key_Return, Qt::KeyboardModifiers()}}) {
    windows_->showAbout();
    const QQuickWindow* opened = windows_->window(WindowKind::about);
    windows_->showAbout();
    EXPECT_EQ(windows_->window(WindowKind::about), opened);
    ASSERT_TRUE(QTest::qWaitForWindowActive(windows_->window(WindowKind::about)));
    pressKey(WindowKind::about, key, modifiers);
    EXPECT_EQ(windows_->window(WindowKind::about), nullptr) << key;
  }
}

}  // namespace
}  // namespace orvane
