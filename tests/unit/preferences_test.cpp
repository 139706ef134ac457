#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/linux/desktop/linux_preferences.h"
#include "tests/unit/test_bus.h"
#include "tests/unit/test_files.h"

namespace orvane {
namespace {

TEST(Preferences, survivesTheProgramAndKeepsForeignKeys) {
  const TestDirectory directory;
  const std::string path = directory.write("o.conf", "[General]\nkept=yes\n\n[other]\nkey=1\n");
  {
    LinuxPreferences preferences(path);
    preferences.setBoolean("launchAtLogin", true);
    EXPECT_NE(readFile(path).find("launchAtLogin=true"), std::string::npos) << "written at once";
    preferences.setText("processSortMode", "peak");
  }
  const LinuxPreferences preferences(path);
  EXPECT_EQ(preferences.boolean("launchAtLogin"), true);
  EXPECT_EQ(preferences.text("processSortMode"), "peak");
  EXPECT_EQ(preferences.text("kept"), "yes");
  EXPECT_NE(readFile(path).find("[other]\nkey=1"), std::string::npos);
}

TEST(Preferences, valuesOfAnotherKindReadAsNone) {
  const TestDirectory directory;
  const std::string path = directory.write(
      "o.conf", "[General]\na=1\nb=TRUE\nc=\nd=one, two\ne=@Variant(\\0)\nf=@Size(1 2)\n");
  const LinuxPreferences preferences(path);
  for (const char* key : {"a", "b", "c", "d", "e", "f", "absent"}) {
    EXPECT_EQ(preferences.boolean(key), std::nullopt) << key;
  }
  for (const char* key : {"d", "f", "absent"}) {
    EXPECT_EQ(preferences.text(key), std::nullopt) << key;
  }
}

TEST(Preferences, aCorruptFileIsKeptBesideTheNewOne) {
  const std::string broken[] = {"[General]\nlaunchAtLogin=true\nnonsense without equals\n",
                                std::string("[General]\na=b\n\0\0\0\0", 17),
                                std::string("\x89PNG\r\n\x1a\n\0\0", 10)};
  for (const std::string& content : broken) {
    const TestDirectory directory;
    const std::string path = directory.write("o.conf", content);
    LinuxPreferences preferences(path);
    EXPECT_EQ(readFile(path), content) << "reading changes nothing";
    preferences.setText("processSortMode", "average");
    EXPECT_EQ(readFile(path + ".corrupt"), content);
    EXPECT_EQ(LinuxPreferences(path).text("processSortMode"), "average");
  }
}

TEST(Preferences, aFileThatCannotBeKeptOrWrittenIsLeftAlone) {
  const TestDirectory directory;
  const std::string content = "[General]\nlaunchAtLogin=true\nnonsense without equals\n";
  const std::string corrupt = directory.write("o.conf", content);
  directory.write("o.conf.corrupt/in-the-way", "x");
  const std::string blocking = directory.write("file", "x");
  for (const std::string& path : {corrupt, blocking + "/o.conf"}) {
    LinuxPreferences preferences(path);
    preferences.setText("processSortMode", "average");
    EXPECT_EQ(preferences.text("processSortMode"), "average") << "for this run";
    runEventLoopFor(20);
  }
  EXPECT_EQ(readFile(corrupt), content);
  EXPECT_EQ(readFile(blocking), "x");
}

TEST(Preferences, waitsForNobodyWhenAPipeOrAFolderIsInTheWay) {
  const TestDirectory directory;
  const std::string before = "[General]\nother=1\n";
  const std::string pipe = makePipe(directory.path("pipe.conf"));
  const std::string locked = directory.write("locked.conf", before);
  const std::string lock = makePipe(locked + ".lock");
  const std::string shut = directory.write("shut.conf", before);
  const std::string folder = shut + ".lock";
  std::filesystem::create_directory(folder);
  for (const auto& [path, obstacle] : {std::pair(pipe, pipe), {locked, lock}, {shut, folder}}) {
    EXPECT_TRUE(endsDespite(obstacle, [&path = path] {
      LinuxPreferences preferences(path);
      preferences.setText("processSortMode", "average");
      EXPECT_EQ(preferences.text("processSortMode"), "average") << "for this run";
    })) << path;
  }
  EXPECT_EQ(readFile(locked), before);
  LinuxPreferences preferences(locked);
  preferences.setText("processSortMode", "average");
  std::filesystem::remove(lock);
  preferences.setBoolean("launchAtLogin", true);
  EXPECT_EQ(LinuxPreferences(locked).text("processSortMode"), "average") << "once it is gone";
}

}  // namespace
}  // namespace orvane
