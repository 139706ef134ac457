#include "platform/linux/status_menu.h"

#include <gtest/gtest.h>

#include "platform/linux/panel_host.h"

namespace orvane {
namespace {

using Kind = StatusMenuEntry::Kind;

class StatusMenuTest : public testing::Test {
 protected:
  StatusMenuTest() {
    menu_.setEntries({{.kind = Kind::toggle,
                       .label = "Show_Window",
                       .isChecked = [this] { return checked_; },
                       .activate = [this] { checked_ = !checked_; }},
                      {.kind = Kind::divider, .label = {}, .isChecked = {}, .activate = {}},
                      {.kind = Kind::action, .label = "Quit", .isChecked = {}, .activate = [this] {
                         menu_.setEntries({});
                       }}});
  }

  bool checked_ = true;
  StatusMenu menu_;
};

TEST_F(StatusMenuTest, DescribesEveryKindOfEntry) {
  const auto layout = menu_.layout(StatusMenu::rootId, -1, {});
  ASSERT_TRUE(layout);
  EXPECT_EQ(layout->properties.value(QStringLiteral("children-display")),
            QVariant(QStringLiteral("submenu")));
  ASSERT_EQ(layout->children.size(), 3);
  EXPECT_EQ(layout->children[0].properties,
            (QVariantMap{{QStringLiteral("label"), QStringLiteral("Show__Window")},
                         {QStringLiteral("toggle-type"), QStringLiteral("checkmark")},
                         {QStringLiteral("toggle-state"), 1}}));
  EXPECT_EQ(layout->children[1].properties,
            (QVariantMap{{QStringLiteral("type"), QStringLiteral("separator")}}));
  EXPECT_EQ(layout->children[2].properties,
            (QVariantMap{{QStringLiteral("label"), QStringLiteral("Quit")}}));
}

TEST_F(StatusMenuTest, AnswersPartialQuestions) {
  EXPECT_TRUE(menu_.layout(StatusMenu::rootId, 0, {})->children.isEmpty());
  EXPECT_TRUE(menu_.layout(1, -1, {})->children.isEmpty());
  EXPECT_FALSE(menu_.layout(4, -1, {}));
  EXPECT_FALSE(menu_.layout(-1, -1, {}));
  EXPECT_EQ(menu_.properties(1, {QStringLiteral("toggle-state")})->size(), 1);
  EXPECT_EQ(menu_.property(3, QStringLiteral("enabled")), QVariant(true));
  EXPECT_FALSE(menu_.property(3, QStringLiteral("no-such-thing")).isValid());
  EXPECT_EQ(menu_.ids(), (QList<int>{0, 1, 2, 3}));
}

TEST_F(StatusMenuTest, CheckMarksChangeOnlyWhenRefreshed) {
  EXPECT_TRUE(menu_.activate(1));
  EXPECT_EQ(menu_.property(1, QStringLiteral("toggle-state")), QVariant(1));
  EXPECT_EQ(menu_.refreshChecks(), QList<int>{1});
  EXPECT_EQ(menu_.property(1, QStringLiteral("toggle-state")), QVariant(0));
  EXPECT_TRUE(menu_.refreshChecks().isEmpty());
}

TEST_F(StatusMenuTest, ActionsMayReplaceTheMenuAndDividersHaveNone) {
  EXPECT_FALSE(menu_.activate(2));
  EXPECT_FALSE(menu_.activate(0));
  EXPECT_TRUE(menu_.activate(3));
  EXPECT_EQ(menu_.ids(), QList<int>{0});
}

TEST(PanelHost, KnowsWhoDrawsLabels) {
  for (const char* name : {"mate-panel", "gnome-shell", "ayatana-indicat"})
    EXPECT_TRUE(panelDrawsLabels(name)) << name;
  for (const char* name : {"xfce4-panel", "wrapper-2.0", "lxqt-panel", "waybar", "plasmashell", ""})
    EXPECT_FALSE(panelDrawsLabels(name)) << name;
}

}  // namespace
}  // namespace orvane
