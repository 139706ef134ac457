#include <gio/gdesktopappinfo.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "platform/linux/bus/session_bus.h"
#include "platform/linux/desktop/linux_desktop_opener.h"
#include "platform/linux/desktop/linux_login_item.h"
#include "platform/linux/desktop/linux_preferences.h"
#include "platform/linux/memory/linux_memory_claims.h"
#include "platform/linux/runtime/linux_standard_output.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class PreferencesTest : public testing::Test {
 protected:
  /// Stores a mode; it holds for this run whatever becomes of the file.
  static void storeMode(const std::string& path) {
    LinuxPreferences preferences(path);
    preferences.setText("processSortMode", "average");
    EXPECT_EQ(preferences.text("processSortMode"), "average") << path;
    QTest::qWait(20);
  }
  static std::optional<std::string> storedMode(const std::string& path) {
    return LinuxPreferences(path).text("processSortMode");
  }

  TestDirectory files_;
  const std::string good_ = "[General]\nkept=yes\n\n[other]\nkey=1\n";
};

TEST_F(PreferencesTest, SurviveTheProgramAndKeepForeignKeys) {
  const std::string path = files_.write("o.conf", good_);
  LinuxPreferences(path).setBoolean("launchAtLogin", true);
  EXPECT_NE(readFile(path).find("launchAtLogin=true"), std::string::npos) << "written at once";
  storeMode(path);
  EXPECT_EQ(storedMode(path), "average");
  EXPECT_EQ(LinuxPreferences(path).boolean("launchAtLogin"), true);
  EXPECT_EQ(LinuxPreferences(path).text("kept"), "yes");
  EXPECT_NE(readFile(path).find("[other]\nkey=1"), std::string::npos);
}

TEST_F(PreferencesTest, OfAnotherKindReadAsNone) {
  const LinuxPreferences preferences(files_.write(
      "o.conf", "[General]\na=1\nb=TRUE\nc=\nd=one, two\ne=@Variant(\\0)\nf=@Size(1 2)\n"));
  for (const char* key : {"a", "b", "c", "d", "e", "f", "absent"})
    EXPECT_EQ(preferences.boolean(key), std::nullopt) << key;
  for (const char* key : {"d", "f", "absent"}) EXPECT_EQ(preferences.text(key), std::nullopt);
}

TEST_F(PreferencesTest, KeepACorruptFileBesideTheNewOneOrLeaveItAlone) {
  for (const std::string& content : {"[General]\nlaunchAtLogin=true\nnonsense without equals\n"s,
                                     "[General]\na=b\n\0\0\0\0"s, "\x89PNG\r\n\x1a\n\0\0"s}) {
    const TestDirectory folder;  // the library remembers files that it has read
    const std::string path = folder.write("o.conf", content);
    const std::string blocked = folder.write("blocked.conf", content);
    folder.write("blocked.conf.corrupt/in-the-way", "x");
    for (const std::string& each : {path, blocked}) storeMode(each);
    EXPECT_EQ(readFile(path + ".corrupt"), content);
    EXPECT_EQ(storedMode(path), "average");
    EXPECT_EQ(readFile(blocked), content) << "it can't be kept";
  }
  const std::string file = files_.write("file", "x");
  storeMode(file + "/o.conf");
  EXPECT_EQ(readFile(file), "x");
  const std::string huge = files_.write("huge.conf", good_ + std::string(1 << 20, '\n'));
  storeMode(huge);
  EXPECT_EQ(readFile(huge).find("average"), std::string::npos);
}

TEST_F(PreferencesTest, WaitForNobodyWhateverIsInTheWay) {
  const std::string pipe = makePipe(files_.path("pipe.conf"));
  const std::string locked = files_.write("locked.conf", good_);
  const std::string lock = makePipe(locked + ".lock");
  const std::string shut = files_.write("shut.conf", good_);
  const std::string folder = shut + ".lock";
  fs::create_directory(folder);
  const std::string taken = files_.write("taken.conf", good_);
  const std::string other = files_.write("taken.conf.lock", "1\norvane\nanother host\n");
  const std::string stale = files_.write("stale.conf", good_);
  files_.write("stale.conf.lock", "0\n");
  const std::string removal = makePipe(stale + ".lock.rmlock");
  for (const auto& [path, obstacle] :
       {std::pair(pipe, pipe), {locked, lock}, {shut, folder}, {taken, other}, {stale, removal}}) {
    EXPECT_TRUE(endsDespite(obstacle, [&path = path] { storeMode(path); })) << path;
  }
  EXPECT_EQ(readFile(locked), good_);
  LinuxPreferences preferences(locked);
  preferences.setText("processSortMode", "average");
  fs::remove(lock);
  preferences.setBoolean("launchAtLogin", true);
  EXPECT_EQ(storedMode(locked), "average") << "once it is gone";
}

TEST(LoginItem, theEntryStartsTheProgramWhateverItsPathUntilItIsRemoved) {
  const TestDirectory folder;
  for (const char* name : {"plain", "with space", "d$ol\"lar`s\\back", "ümläut'"}) {
    const std::string program = folder.write(name, "#!/bin/sh\n: > \"$0.started\"\n");
    fs::permissions(program, fs::perms::owner_all);
    ASSERT_EQ(LinuxLoginItem(program, folder.path("autostart")).registerItem(), std::nullopt);

    const std::unique_ptr<GDesktopAppInfo, decltype(&g_object_unref)> entry(
        g_desktop_app_info_new_from_filename(folder.path("autostart/orvane.desktop").c_str()),
        g_object_unref);
    ASSERT_TRUE(entry) << name;
    ASSERT_TRUE(g_app_info_launch(G_APP_INFO(entry.get()), nullptr, nullptr, nullptr)) << name;
    EXPECT_TRUE(waitUntil([&] { return fs::exists(program + ".started"); })) << name;
  }
  LinuxLoginItem last("/usr/bin/orvane", folder.path("autostart"));
  EXPECT_EQ(last.unregisterItem(), std::nullopt);
  EXPECT_EQ(last.unregisterItem(), "No such file or directory");
  EXPECT_NE(autostartEntry("/p%f").find("TryExec=/p%f\nExec=\"/p%%f\"\n"), std::string::npos)
      << "no field code, and no start of a program that is gone";
}

TEST(LoginItem, theEntryIsReplacedWholeAlsoThroughASymbolicLink) {
  const TestDirectory folder;
  const std::string kept = folder.write("kept.desktop", "old");
  fs::create_directory(folder.path("autostart"));
  fs::create_symlink(kept, folder.path("autostart/orvane.desktop"));
  std::ifstream reader(kept);
  LinuxLoginItem item("/usr/bin/orvane", folder.path("autostart"));
  ASSERT_EQ(item.registerItem(), std::nullopt);
  const std::string left = folder.write("autostart/orvane.desktop.aBcDeF", "[Desktop Ent");
  const std::string own = folder.write("autostart/orvane.desktop.backup", "[Desktop Entry]\nMine");
  const LinuxLoginItem next("/usr/bin/orvane", folder.path("autostart"));
  EXPECT_FALSE(fs::exists(left)) << "of a write that was killed";
  EXPECT_TRUE(fs::exists(own));
  EXPECT_EQ(readFile(kept), autostartEntry("/usr/bin/orvane"));
  std::ostringstream held;
  held << reader.rdbuf();
  EXPECT_EQ(held.str(), "old") << "written into, not replaced";
}

/// An empty desktop whose xdg-open writes down what it is called with.
class DesktopOpener : public ::testing::Test {
 protected:
  DesktopOpener() {
    std::ofstream(file("xdg-open"))
        << "#!/bin/sh\nprintf '%s|' \"$@\" \"$(ulimit -n)\" \"$(cat /proc/self/oom_score_adj)\" "
           "\"$PWD\" \"$(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2 | uniq)\" "
           "\"$((0x$(sed -n 's/^SigIgn:.//p' /proc/$$/status) & 0x1000))\" > "
        << file("part") << "\nmv " << file("part") << ' ' << file("opened") << "\necho noise\n";
    fs::permissions(file("xdg-open"), fs::perms::owner_all);
  }

  [[nodiscard]] std::string file(const std::string& name) const { return directory_.path(name); }

  std::string opened() {
    EXPECT_TRUE(waitUntil([&] { return fs::exists(file("opened")); }));
    std::string line = readFile(file("opened"));
    fs::remove(file("opened"));
    return line;
  }

  TestDirectory directory_;
  ScopedEnvironment path_{"PATH", directory_.path() + ":" + std::getenv("PATH")};
};

TEST_F(DesktopOpener, LaunchesTheDesktopsCommandWithTheLimitsOfTheSession) {
  rlimit limit{};
  getrlimit(RLIMIT_NOFILE, &limit);
  const std::string before = std::to_string(limit.rlim_cur);
  std::string adjustment = readFile("/proc/self/oom_score_adj");
  adjustment.pop_back();
  SessionBus bus;
  LinuxDesktopOpener opener(bus);
  limit.rlim_cur -= 10;
  setrlimit(RLIMIT_NOFILE, &limit);
  const LinuxStandardOutput ignoresBrokenPipes;
  LinuxMemoryClaims claims;
  auto claim = claims.claim(1024);  // as during a boost
  const std::string mail = "mailto:a@b.example?subject=A%20B&body=C%0AD%27$(id)";
  for (const auto& url : {"--help"s, "https://a b"s, mail}) opener.openUrl(url);
  EXPECT_EQ(opened(), mail + "|" + before + "|" + adjustment + "|" + fs::current_path().string() +
                          "|/dev/null|0|");
  limit.rlim_cur += 10;
  setrlimit(RLIMIT_NOFILE, &limit);
}

TEST_F(DesktopOpener, OpensTheFolderWhereNoFileManagerAnswers) {
  EXPECT_EQ(fileAddress("/a b/#1?%/\xff\xc3\xa9~"), "file:///a%20b/%231%3F%25/%FF%C3%A9~");
  const TestBus daemon;
  SessionBus bus;
  LinuxDesktopOpener opener(bus);
  const std::string program = directory_.write("a program", "x");
  const std::string folder = "file://" + directory_.path();
  opener.revealFile(program);
  EXPECT_TRUE(opened().starts_with(folder)) << "no bus yet";
  bus.start();
  ASSERT_TRUE(waitUntil([&] { return bus.isConnected(); }));
  opener.revealFile(program);
  EXPECT_TRUE(opened().starts_with(folder)) << "nobody on it";
  for (const auto& path : {file("none/program"), "relative"s, file("none")})
    opener.revealFile(path);
  EXPECT_TRUE(opened().starts_with(folder)) << "only the folder that exists";
}

}  // namespace
}  // namespace orvane
