#include <gio/gdesktopappinfo.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "platform/linux/desktop/linux_login_item.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

TEST(LoginItem, theEntryStartsTheProgramWhateverItsPath) {
  const TestDirectory directory;
  for (const char* name : {"plain", "with space", "d$ol\"lar`s\\back", "ümläut'"}) {
    const std::string program = directory.write(name, "#!/bin/sh\n: > \"$0.started\"\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    LinuxLoginItem item(program, directory.path("autostart"));
    ASSERT_EQ(item.registerItem(), std::nullopt);

    const std::unique_ptr<GDesktopAppInfo, decltype(&g_object_unref)> entry(
        g_desktop_app_info_new_from_filename(directory.path("autostart/orvane.desktop").c_str()),
        g_object_unref);
    ASSERT_TRUE(entry) << name;
    ASSERT_TRUE(g_app_info_launch(G_APP_INFO(entry.get()), nullptr, nullptr, nullptr)) << name;
    EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(program + ".started"); })) << name;
  }
  EXPECT_NE(autostartEntry("/p%f").find("TryExec=/p%f\nExec=\"/p%%f\"\n"), std::string::npos)
      << "no field code, and no start of a program that is gone";
}

TEST(LoginItem, registersAsOftenAsAskedAndUnregistersOnce) {
  const TestDirectory directory;
  LinuxLoginItem item("/usr/bin/orvane", directory.path("autostart"));
  EXPECT_EQ(item.unregisterItem(), "No such file or directory");
  for (const int time : {1, 2}) EXPECT_EQ(item.registerItem(), std::nullopt) << time;
  EXPECT_EQ(item.unregisterItem(), std::nullopt);
  EXPECT_EQ(item.unregisterItem(), "No such file or directory");
}

TEST(LoginItem, theEntryIsReplacedWholeAlsoThroughASymbolicLink) {
  const TestDirectory directory;
  const std::string kept = directory.write("kept.desktop", "old");
  std::filesystem::create_directory(directory.path("autostart"));
  std::filesystem::create_symlink(kept, directory.path("autostart/orvane.desktop"));
  std::ifstream reader(kept);
  LinuxLoginItem item("/usr/bin/orvane", directory.path("autostart"));
  ASSERT_EQ(item.registerItem(), std::nullopt);
  const std::string left = directory.write("autostart/orvane.desktop.aBcDeF", "[Desktop Ent");
  const std::string own =
      directory.write("autostart/orvane.desktop.backup", "[Desktop Entry]\nMine");
  const LinuxLoginItem next("/usr/bin/orvane", directory.path("autostart"));
  EXPECT_FALSE(std::filesystem::exists(left)) << "of a write that was killed";
  EXPECT_TRUE(std::filesystem::exists(own));
  EXPECT_EQ(readFile(kept), autostartEntry("/usr/bin/orvane"));
  std::ostringstream held;
  held << reader.rdbuf();
  EXPECT_EQ(held.str(), "old") << "written into, not replaced";
}

}  // namespace
}  // namespace orvane
