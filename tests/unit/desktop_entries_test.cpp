#include "platform/linux/applications/desktop_entries.h"

#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <filesystem>

#include "platform/linux/files/regular_file.h"
#include "tests/unit/test_support.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;

const std::string application = "[Desktop Entry]\nType=Application\n";

class DesktopEntriesTest : public testing::Test {
 protected:
  void SetUp() override {
    // What is written from now on shows in the folder's time, however coarse that is.
    fs::last_write_time(own_.path(), fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_TRUE(entries_.refresh());
  }

  static std::string idOf(const DesktopEntries::Entry& entry) { return entry ? entry->id : ""; }

  TestDirectory own_;
  DesktopEntries entries_{{own_.path(), ORVANE_TEST_DATA "/applications/entries", "/nowhere"}};
};

TEST_F(DesktopEntriesTest, FindsByIdAndFile) {
  const auto editor = entries_.byId("org.example.Editor");
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->name, "Editor");
  EXPECT_EQ(editor->icon, "org.example.Editor");
  EXPECT_TRUE(editor->visible);
  EXPECT_EQ(entries_.byId("ORG.example.editor"), editor);
  EXPECT_EQ(entries_.byId("org.example.Editor-settings")->icon, "/usr/share/pixmaps/editor.png");
  EXPECT_FALSE(entries_.byId("org.example.Agent")->visible);
  EXPECT_EQ(idOf(entries_.byFile("/any/where/applications/kde/tool.desktop")), "kde-tool");
  EXPECT_EQ(idOf(entries_.byFile("/home/u/Desktop/cat.desktop")), "cat");
  for (auto id : {"", "gone", "deleted", "broken", "tool"}) EXPECT_FALSE(entries_.byId(id)) << id;
}

TEST_F(DesktopEntriesTest, FindsByWindowClassAndCommand) {
  EXPECT_EQ(idOf(entries_.byWindowClass("editor", "example-editor")), "org.example.Editor");
  EXPECT_EQ(idOf(entries_.byWindowClass("cat", "Whatever")), "cat");
  EXPECT_EQ(idOf(entries_.byWindowClass("x", "Agent")), "org.example.Agent");
  EXPECT_EQ(idOf(entries_.byWindowClass("", "")), "");
  std::setlocale(LC_CTYPE, "tr_TR.UTF-8");  // if it's installed
  EXPECT_EQ(idOf(entries_.byWindowClass("EDITOR", "")), "org.example.Editor");
  std::setlocale(LC_CTYPE, "C");
  const std::string cat = fs::canonical("/usr/bin/cat").string();
  const struct {
    std::string path;
    std::vector<std::string> arguments;
    std::string id;
  } commands[] = {{cat, {"cat", "file"}, "cat"},
                  {cat, {"cat", "--preferences"}, "cat"},  // named after the program
                  {"/opt/other/cat", {"cat"}, "cat"},      // another copy of it
                  {"/usr/bin/sleep", {"sleep", "9"}, "org.example.Agent"},
                  {"/opt/other/sleep", {"sleep"}, ""},  // only the same by chance
                  {"/usr/bin/tail", {"tail"}, ""},
                  {"/usr/bin/unshare", {"unshare", "--user", "x"}, ""},  // a mere launcher
                  {"/usr/bin/bash", {"bash"}, ""},
                  {"/opt/cat/real-cat", {"/usr/bin/cat"}, "cat"}};  // started under its name
  for (const auto& [path, arguments, id] : commands) {
    const auto command = processCommand(path, arguments, "");
    EXPECT_EQ(idOf(entries_.byCommand(command, arguments)), id) << path;
  }
}

TEST_F(DesktopEntriesTest, ReadsAgainWhenAFolderChanged) {
  EXPECT_FALSE(entries_.refresh());
  const auto before = entries_.byId("cat");
  own_.write("cat.desktop", application + "Hidden=true\nName=Cat\nExec=cat\n");
  own_.write("new.desktop", application + "Name=New\nExec=ls\n");
  EXPECT_TRUE(entries_.refresh());
  EXPECT_FALSE(entries_.refresh());
  EXPECT_TRUE(entries_.byId("new"));
  EXPECT_FALSE(entries_.byId("cat")) << "deleted by the user";
  EXPECT_EQ(before->name, "Cat") << "entries in use stay valid";
}

TEST_F(DesktopEntriesTest, NoticesAFileEditedInPlaceWhenItsTurnHasCome) {
  constexpr std::size_t count = 2 * DesktopEntries::filesPerRefresh + 2;
  const auto write = [this](std::size_t number, const std::string& text) {
    std::string id = "app" + std::to_string(number);
    own_.write(id + ".desktop", text);
    return id;
  };
  write(0, "not yet an entry");
  for (std::size_t i = 1; i < count; ++i) write(i, application + "Name=App\nExec=ls\n");
  EXPECT_TRUE(entries_.refresh());
  const auto folder = fs::last_write_time(own_.path());
  for (const std::size_t edited : {count - 1, std::size_t{0}, std::size_t{1}}) {
    const std::string id = write(edited, application + "Name=Edited\nExec=ls\n");
    EXPECT_EQ(fs::last_write_time(own_.path()), folder);
    // With those of the test data they take two calls and a part of a third.
    EXPECT_TRUE(entries_.refresh() || entries_.refresh() || entries_.refresh()) << id;
    ASSERT_TRUE(entries_.byId(id));
    EXPECT_EQ(entries_.byId(id)->name, "Edited");
  }
  for (int i = 0; i < 8; ++i) EXPECT_FALSE(entries_.refresh()) << "nothing changes any more";
}

TEST_F(DesktopEntriesTest, PassesOverWhatOnlyLooksLikeAFile) {
  const std::string pipe = makePipe(own_.path("pipe.desktop"));
  own_.write("folder.desktop/inner.desktop", application + "Name=Inner\nExec=ls\n");
  fs::create_symlink("circle.desktop", own_.path("circle.desktop"));
  own_.write("big.desktop", application + "Exec=ls\n" + std::string(std::size_t{1} << 20U, '#'));
  own_.write("good.desktop", application + "Name=Good\nExec=ls\n");
  fs::create_directory_symlink(own_.path(), own_.path("link"));
  ASSERT_TRUE(endsDespite(pipe, [this] { EXPECT_TRUE(entries_.refresh()); }));
  for (auto id : {"pipe", "folder.desktop", "circle", "big"}) EXPECT_FALSE(entries_.byId(id)) << id;
  EXPECT_TRUE(entries_.byId("folder.desktop-inner"));
  EXPECT_TRUE(entries_.byId("link-good"));
  EXPECT_FALSE(entries_.byId("link-folder.desktop-inner")) << "a link may lead to everything";
  EXPECT_FALSE(entries_.refresh());
}

TEST(ReadRegularFile, GivesWholeFilesOfAtMostTheLimitAndNothingElse) {
  const TestDirectory folder;
  const std::string bytes = std::string(9999, 'x') + std::string("\0\xFF", 2);
  const std::string file = folder.write("file", bytes);
  EXPECT_EQ(readRegularFile(file, bytes.size()), bytes);
  EXPECT_EQ(readRegularFile(file, bytes.size() - 1), std::nullopt);
  EXPECT_EQ(readRegularFile(folder.write("empty", ""), 0), "");
  fs::create_symlink(file, folder.path("link"));
  EXPECT_EQ(readRegularFile(folder.path("link"), 1U << 20U), bytes);
  // The kernel's files say that they are empty.
  EXPECT_GT(readRegularFile("/proc/self/maps", 1U << 24U).value_or("").size(), 4096U);
  EXPECT_EQ(readRegularFile("/proc/self/maps", 4096), std::nullopt);
  const std::string pipe = makePipe(folder.path("pipe"));
  EXPECT_TRUE(endsDespite(pipe, [&] {
    for (const std::string& path : {pipe, folder.path(), folder.path("missing"), std::string(),
                                    std::string("/dev/null"), file + std::string("\0", 1)}) {
      EXPECT_EQ(readRegularFile(path, 100), std::nullopt) << path;
    }
  }));
}

}  // namespace
}  // namespace orvane
