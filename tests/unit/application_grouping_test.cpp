// Which processes form an application, and which of them leads it.
#include "platform/linux/application_grouping.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace orvane {
namespace {

/// "leader: member member ..." of every application, oldest leader first.
std::vector<std::string> groups(std::vector<GroupedProcess> processes) {
  std::vector<std::string> texts;
  for (const auto& group : groupApplications(processes)) {
    std::string text = std::to_string(processes[group.leader].pid) + ":";
    for (const std::size_t member : group.members) {
      text += ' ' + std::to_string(processes[member].pid);
    }
    texts.push_back(text);
  }
  return texts;
}

using Groups = std::vector<std::string>;
const int editor = 0;
const int browser = 0;

GroupedProcess process(std::int32_t pid, std::int32_t parent,
                       ProcessRole role = ProcessRole::program) {
  return {.pid = pid,
          .parent = parent,
          .processGroup = pid,
          .session = 1,
          .startTime = static_cast<std::uint64_t>(pid),
          .residentSize = 100,
          .unit = {},
          .role = role};
}

GroupedProcess application(std::int32_t pid, std::int32_t parent, const void* name) {
  auto result = process(pid, parent);
  result.claimed = result.visible = true;
  result.application = name;
  return result;
}

GroupedProcess windowOwner(std::int32_t pid, std::int32_t parent) {
  auto result = application(pid, parent, nullptr);
  result.ownsWindow = true;
  return result;
}

GroupedProcess inUnit(GroupedProcess process, std::string_view unit, bool isApplication) {
  process.unit = unit;
  process.unitIsApplication = isApplication;
  return process;
}

GroupedProcess helperOf(GroupedProcess process, std::int32_t processGroup) {
  process.processGroup = processGroup;
  return process;
}

TEST(ApplicationGrouping, ProcessesBelongToTheApplicationAboveThem) {
  EXPECT_EQ(groups({}), Groups{});
  EXPECT_EQ(groups({application(10, 1, &editor), process(11, 10), process(12, 11)}),
            (Groups{"10: 10 11 12"}));
  // A browser's children run the same program; another instance of it stands for itself.
  EXPECT_EQ(groups({application(10, 1, &browser), application(11, 10, &browser),
                    application(12, 11, &browser), application(20, 1, &browser)}),
            (Groups{"10: 10 11 12", "20: 20"}));
  // A terminal keeps its shell and tools, but not the applications started there.
  EXPECT_EQ(
      groups({application(10, 1, &editor), process(11, 10, ProcessRole::shell), process(12, 11),
              application(13, 11, &editor), windowOwner(14, 11), process(15, 14)}),
      (Groups{"10: 10 11 12", "13: 13", "14: 14 15"}));
}

TEST(ApplicationGrouping, UnitsComeFirst) {
  EXPECT_EQ(groups({inUnit(application(10, 1, &editor), "/a.scope", true),
                    inUnit(application(11, 10, &browser), "/a.scope", true),
                    inUnit(process(12, 1), "/a.scope", true), process(13, 12),
                    inUnit(process(14, 10), "/b.scope", true)}),
            (Groups{"10: 10 11 12 13", "14: 14"}));
  // A service nobody claims is one application, the applications it starts are others.
  EXPECT_EQ(groups({process(9, 1, ProcessRole::sessionRoot),
                    inUnit(process(10, 9), "/dbus.service", false),
                    inUnit(process(11, 10), "/dbus.service", false),
                    inUnit(application(12, 10, &editor), "/dbus.service", false),
                    inUnit(process(13, 12), "/dbus.service", false),
                    inUnit(process(14, 9), "/audio.service", false)}),
            (Groups{"9: 9", "10: 10 11", "12: 12 13", "14: 14"}));
  // The launcher of the unit has ended; its crash reporter is older than the program.
  EXPECT_EQ(
      groups({inUnit(process(10, 1), "/a.scope", true), inUnit(process(11, 1), "/a.scope", true),
              inUnit(windowOwner(12, 11), "/a.scope", true)}),
      (Groups{"11: 10 11 12"}));
}

TEST(ApplicationGrouping, SessionRootsDontSwallowWhatTheyStart) {
  // login shell - X starter - session manager - panel (with a plugin) - launched programs
  auto panel = process(20, 12);
  EXPECT_EQ(groups({process(10, 5, ProcessRole::shell), process(11, 10),
                    process(12, 11, ProcessRole::sessionRoot), process(15, 12), panel,
                    helperOf(process(21, 20), 20), process(22, 20), process(23, 22),
                    application(24, 20, &editor)}),
            (Groups{"10: 10", "11: 11", "12: 12", "15: 15", "20: 20 21", "22: 22 23", "24: 24"}));
  // Whatever the first process of the machine or of a container is.
  EXPECT_EQ(groups({process(1, 0), process(10, 1), process(11, 10), process(12, 1)}),
            (Groups{"1: 1", "10: 10 11", "12: 12"}));
  // A window manager with a hidden entry of its own.
  auto manager = application(10, 1, &editor);
  manager.visible = false;
  EXPECT_EQ(groups({manager, process(11, 10), helperOf(process(12, 10), 10), windowOwner(13, 10)}),
            (Groups{"10: 10 12", "11: 11", "13: 13"}));
}

TEST(ApplicationGrouping, WrappersHandTheLeadToTheirProgram) {
  auto wrapper = application(10, 1, &editor);
  wrapper.role = ProcessRole::wrapper;
  auto big = process(13, 10);
  big.residentSize = 5000;
  EXPECT_EQ(groups({wrapper, process(12, 10), big, process(14, 13)}), (Groups{"13: 10 12 13 14"}));
  // The program's window names no entry, the script was launched from one: one application.
  EXPECT_EQ(groups({wrapper, big, windowOwner(14, 10)}), (Groups{"14: 10 13 14"}));
  // A sandbox is a chain of wrappers.
  EXPECT_EQ(groups({inUnit(process(10, 1, ProcessRole::wrapper), "/f.scope", true),
                    inUnit(process(11, 10, ProcessRole::wrapper), "/f.scope", true),
                    inUnit(process(12, 11), "/f.scope", true),
                    inUnit(process(13, 12), "/f.scope", true)}),
            (Groups{"12: 10 11 12 13"}));
  // A script that does its work with one tool after the other leads itself.
  auto tool = process(11, 10);
  tool.startTime = 5000;
  EXPECT_EQ(groups({process(10, 1, ProcessRole::wrapper), tool}), (Groups{"10: 10 11"}));
}

TEST(ApplicationGrouping, EveryProcessIsInExactlyOneApplication) {
  // Parents that read as a circle (a pid was reused in between) must not hang or lose anything.
  std::vector<GroupedProcess> processes{process(10, 12), process(11, 10), process(12, 11),
                                        process(13, 13), windowOwner(14, 12)};
  std::multiset<std::size_t> members;
  for (const auto& group : groupApplications(processes)) {
    members.insert(group.members.begin(), group.members.end());
  }
  EXPECT_EQ(members, (std::multiset<std::size_t>{0, 1, 2, 3, 4}));
}

}  // namespace
}  // namespace orvane
