#include "platform/linux/desktop_entries.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/unit/test_files.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;

class DesktopEntriesTest : public testing::Test {
 protected:
  void SetUp() override { EXPECT_TRUE(entries_.refresh()); }

  static std::string idOf(const DesktopEntries::Entry& entry) { return entry ? entry->id : ""; }

  [[nodiscard]] std::string byCommand(const std::string& path,
                                      std::vector<std::string> arguments) const {
    const auto command = processCommand(path, arguments, "");
    return idOf(entries_.byCommand(command, arguments));
  }

  TestDirectory own_;
  DesktopEntries entries_{{own_.path(), ORVANE_TEST_DATA "/applications/entries", "/nowhere"}};
};

TEST_F(DesktopEntriesTest, FindsByIdAndFile) {
  const auto editor = entries_.byId("org.example.Editor");
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->name, "Editor");
  EXPECT_EQ(editor->icon, "org.example.Editor");
  EXPECT_TRUE(editor->visible);
  EXPECT_EQ(idOf(entries_.byId("ORG.example.editor")), "org.example.Editor");
  EXPECT_EQ(entries_.byId("org.example.Editor-settings")->icon, "/usr/share/pixmaps/editor.png");
  EXPECT_FALSE(entries_.byId("org.example.Agent")->visible);
  EXPECT_EQ(idOf(entries_.byFile("/any/where/applications/kde/tool.desktop")), "kde-tool");
  EXPECT_EQ(idOf(entries_.byFile("/home/u/Desktop/cat.desktop")), "cat");
  for (const char* id : {"", "gone", "deleted", "broken", "tool"}) {
    EXPECT_FALSE(entries_.byId(id)) << id;
  }
}

TEST_F(DesktopEntriesTest, FindsByWindowClass) {
  EXPECT_EQ(idOf(entries_.byWindowClass("editor", "example-editor")), "org.example.Editor");
  EXPECT_EQ(idOf(entries_.byWindowClass("cat", "Whatever")), "cat");
  EXPECT_EQ(idOf(entries_.byWindowClass("x", "Agent")), "org.example.Agent");
  EXPECT_EQ(idOf(entries_.byWindowClass("", "")), "");
}

TEST_F(DesktopEntriesTest, FindsByCommand) {
  const std::string cat = fs::canonical("/usr/bin/cat").string();
  EXPECT_EQ(byCommand(cat, {"cat", "file"}), "cat");
  EXPECT_EQ(byCommand(cat, {"cat", "--preferences"}), "cat") << "named after the program";
  EXPECT_EQ(byCommand("/opt/other/cat", {"cat"}), "cat") << "another copy of it";
  EXPECT_EQ(byCommand("/usr/bin/sleep", {"sleep", "9"}), "org.example.Agent");
  EXPECT_EQ(byCommand("/opt/other/sleep", {"sleep"}), "") << "only the same by chance";
  EXPECT_EQ(byCommand("/usr/bin/tail", {"tail"}), "");
  EXPECT_EQ(byCommand("/usr/bin/unshare", {"unshare", "--user", "x"}), "") << "a mere launcher";
  EXPECT_EQ(byCommand("/usr/bin/bash", {"bash"}), "");
  EXPECT_EQ(byCommand("/opt/cat/real-cat", {"/usr/bin/cat"}), "cat") << "started under its name";
}

TEST_F(DesktopEntriesTest, ReadsAgainWhenAFolderChanged) {
  EXPECT_FALSE(entries_.refresh());
  const auto before = entries_.byId("cat");
  const std::string application = "[Desktop Entry]\nType=Application\n";
  own_.write("cat.desktop", application + "Hidden=true\nName=Cat\nExec=cat\n");
  own_.write("new.desktop", application + "Name=New\nExec=ls\n");
  EXPECT_TRUE(entries_.refresh());
  EXPECT_FALSE(entries_.refresh());
  EXPECT_TRUE(entries_.byId("new"));
  EXPECT_FALSE(entries_.byId("cat")) << "deleted by the user";
  EXPECT_EQ(before->name, "Cat") << "entries in use stay valid";
}

}  // namespace
}  // namespace orvane
