#include <gio/gdesktopappinfo.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

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
  EXPECT_NE(autostartEntry("/p%f").find("Exec=\"/p%%f\"\n"), std::string::npos) << "no field code";
}

}  // namespace
}  // namespace orvane
