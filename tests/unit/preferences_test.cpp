#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/linux/desktop/linux_preferences.h"
#include "tests/unit/test_bus.h"
#include "tests/unit/test_files.h"

namespace orvane {
namespace {

using namespace std::string_literals;

class PreferencesTest : public testing::Test {
 protected:
  std::string write(const std::string& name, const std::string& content) {
    return directory_.write(name, content);
  }
  /// Stores a mode; it holds for this run whatever becomes of the file.
  static void storeMode(const std::string& path) {
    LinuxPreferences preferences(path);
    preferences.setText("processSortMode", "average");
    EXPECT_EQ(preferences.text("processSortMode"), "average") << path;
    runEventLoopFor(20);
  }
  static std::optional<std::string> storedMode(const std::string& path) {
    return LinuxPreferences(path).text("processSortMode");
  }

  TestDirectory directory_;
  const std::string good_ = "[General]\nkept=yes\n\n[other]\nkey=1\n";
};

TEST_F(PreferencesTest, SurviveTheProgramAndKeepForeignKeys) {
  const std::string path = write("o.conf", good_);
  LinuxPreferences(path).setBoolean("launchAtLogin", true);
  EXPECT_NE(readFile(path).find("launchAtLogin=true"), std::string::npos) << "written at once";
  storeMode(path);
  EXPECT_EQ(storedMode(path), "average");
  EXPECT_EQ(LinuxPreferences(path).boolean("launchAtLogin"), true);
  EXPECT_EQ(LinuxPreferences(path).text("kept"), "yes");
  EXPECT_NE(readFile(path).find("[other]\nkey=1"), std::string::npos);
}

TEST_F(PreferencesTest, OfAnotherKindReadAsNone) {
  const LinuxPreferences preferences(
      write("o.conf", "[General]\na=1\nb=TRUE\nc=\nd=one, two\ne=@Variant(\\0)\nf=@Size(1 2)\n"));
  for (const char* key : {"a", "b", "c", "d", "e", "f", "absent"}) {
    EXPECT_EQ(preferences.boolean(key), std::nullopt) << key;
  }
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
  const std::string file = write("file", "x");
  storeMode(file + "/o.conf");
  EXPECT_EQ(readFile(file), "x");
  const std::string huge = write("huge.conf", good_ + std::string(1 << 20, '\n'));
  storeMode(huge);
  EXPECT_EQ(readFile(huge).find("average"), std::string::npos);
}

TEST_F(PreferencesTest, WaitForNobodyWhateverIsInTheWay) {
  const std::string pipe = makePipe(directory_.path("pipe.conf"));
  const std::string locked = write("locked.conf", good_);
  const std::string lock = makePipe(locked + ".lock");
  const std::string shut = write("shut.conf", good_);
  const std::string folder = shut + ".lock";
  std::filesystem::create_directory(folder);
  const std::string taken = write("taken.conf", good_);
  const std::string other = write("taken.conf.lock", "1\norvane\nanother host\n");
  const std::string stale = write("stale.conf", good_);
  write("stale.conf.lock", "0\n");
  const std::string removal = makePipe(stale + ".lock.rmlock");
  for (const auto& [path, obstacle] :
       {std::pair(pipe, pipe), {locked, lock}, {shut, folder}, {taken, other}, {stale, removal}}) {
    EXPECT_TRUE(endsDespite(obstacle, [&path = path] { storeMode(path); })) << path;
  }
  EXPECT_EQ(readFile(locked), good_);
  LinuxPreferences preferences(locked);
  preferences.setText("processSortMode", "average");
  std::filesystem::remove(lock);
  preferences.setBoolean("launchAtLogin", true);
  EXPECT_EQ(storedMode(locked), "average") << "once it is gone";
}

}  // namespace
}  // namespace orvane
