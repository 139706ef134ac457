// Which processes form an application, and which of them leads it.
#include "platform/linux/applications/application_grouping.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace orvane {
namespace {

/// Of every application, oldest leader first: the leader, and the others.
std::string groups(std::vector<GroupedProcess> processes) {
  std::string text;
  for (const auto& group : groupApplications(processes)) {
    text += (text.empty() ? "" : ", ") + std::to_string(processes[group.leader].pid);
    for (const std::size_t member : group.members)
      if (member != group.leader) text += ' ' + std::to_string(processes[member].pid);
    EXPECT_TRUE(std::count(group.members.begin(), group.members.end(), group.leader));
  }
  return text;
}

const int editor = 0;
const int browser = 0;

GroupedProcess process(int pid, int parent, ProcessRole role = ProcessRole::program) {
  return {.pid = pid,
          .parent = parent,
          .processGroup = pid,
          .session = 1,
          .startTime = static_cast<std::uint64_t>(pid),
          .residentSize = 100,
          .program = "program",
          .executable = "/usr/bin/program",
          .command = "program",
          .unit = {},
          .role = role};
}

/// What runs another program, of so many bytes.
GroupedProcess running(std::string_view program, int pid, int parent, std::uint64_t residentSize) {
  auto result = process(pid, parent);
  result.program = program;
  result.residentSize = residentSize;
  return result;
}

GroupedProcess application(int pid, int parent, const void* name) {
  auto result = process(pid, parent);
  result.claimed = result.visible = true;
  result.application = name;
  return result;
}

GroupedProcess windowOwner(int pid, int parent) {
  auto result = application(pid, parent, nullptr);
  result.ownsWindow = true;
  return result;
}

GroupedProcess inUnit(GroupedProcess process, std::string_view unit, bool isApplication) {
  process.unit = unit;
  process.unitIsApplication = isApplication;
  return process;
}

const auto inScope = [](GroupedProcess process) { return inUnit(process, "/a.scope", true); };
const auto inService = [](GroupedProcess process) { return inUnit(process, "/a.service", false); };

GroupedProcess helperOf(GroupedProcess process, int processGroup) {
  process.processGroup = processGroup;
  return process;
}

TEST(ApplicationGrouping, ProcessesBelongToTheApplicationAboveThem) {
  EXPECT_EQ(groups({}), "");
  EXPECT_EQ(groups({application(10, 1, &editor), process(11, 10), process(12, 11)}), "10 11 12");
  // A browser's children run the same program; another instance of it stands for itself.
  EXPECT_EQ(groups({application(10, 1, &browser), application(11, 10, &browser),
                    application(12, 11, &browser), application(20, 1, &browser)}),
            "10 11 12, 20");
  // A terminal keeps its shell and tools, but not the applications started there.
  EXPECT_EQ(
      groups({application(10, 1, &editor), process(11, 10, ProcessRole::shell), process(12, 11),
              application(13, 11, &editor), windowOwner(14, 11), process(15, 14)}),
      "10 11 12, 13, 14 15");
  // Parents that read as a circle (a pid was reused in between) neither hang nor lose anything.
  EXPECT_EQ(groups({process(10, 12), process(11, 10), process(12, 11), process(13, 13),
                    windowOwner(14, 12)}),
            "11 10 12, 13, 14");
}

TEST(ApplicationGrouping, UnitsComeFirst) {
  EXPECT_EQ(
      groups({inScope(application(10, 1, &editor)), inScope(application(11, 10, &browser)),
              inScope(process(12, 1)), process(13, 12), inUnit(process(14, 10), "/b.scope", true)}),
      "10 11 12 13, 14");
  // A service nobody claims is one application, the applications it starts are others.
  EXPECT_EQ(groups({process(9, 1, ProcessRole::sessionRoot), inService(process(10, 9)),
                    inService(process(11, 10)), inService(application(12, 10, &editor)),
                    inService(process(13, 12)), inUnit(process(14, 9), "/audio.service", false)}),
            "9, 10 11, 12 13, 14");
  // The launcher of the unit has ended; its crash reporter is older than the program.
  EXPECT_EQ(
      groups({inScope(process(10, 1)), inScope(process(11, 1)), inScope(windowOwner(12, 11))}),
      "11 10 12");
}

TEST(ApplicationGrouping, SessionRootsDontSwallowWhatTheyStart) {
  // login shell - X starter - session manager - programs
  EXPECT_EQ(groups({process(10, 5, ProcessRole::shell), process(11, 10, ProcessRole::sessionRoot),
                    process(12, 11, ProcessRole::sessionRoot), process(15, 12), process(16, 15)}),
            "10, 11, 12, 15 16");
  // Whatever the first process of the machine or of a container is.
  EXPECT_EQ(groups({process(1, 0), process(2, 1), process(3, 2), process(4, 1)}), "1, 2 3, 4");
}

TEST(ApplicationGrouping, LaunchersKeepTheirHelpersOnly) {
  auto panel = application(20, 5, &editor);
  panel.role = ProcessRole::launcher;
  panel.executable = "/usr/bin/panel";
  auto again = process(21, 20);
  again.executable = panel.executable;
  auto plugin = process(22, 20);
  plugin.executable = "/usr/lib/x86_64-linux-gnu/panel/wrapper";
  auto machine = process(23, 20);
  machine.executable = "/usr/lib/jvm/bin/java";
  // What it started may be in its process group, have children, and know no entry.
  EXPECT_EQ(groups({panel, again, plugin, machine, helperOf(process(24, 20), 20), process(25, 24),
                    application(26, 20, &browser)}),
            "20 21 22, 23, 24 25, 26");
  // In a service, or a unit of its own, no less; a launcher isn't gathered by what started it.
  for (const auto in : {+inService, +inScope}) {
    EXPECT_EQ(groups({process(19, 1), in(panel), in(plugin), in(process(24, 20)),
                      in(process(25, 24)), in(process(30, 1))}),
              "19, 20 22, 24 25, 30");
  }
  panel.parent = 19;
  panel.claimed = false;
  EXPECT_EQ(groups({process(19, 1), panel}), "19, 20");
}

TEST(ApplicationGrouping, ATreeThatNobodyClaimsIsOneSession) {
  auto detached = process(12, 10);
  auto below = process(13, 12);
  detached.session = below.session = 12;
  // An application that starts in it moves nothing.
  EXPECT_EQ(
      groups({process(10, 5), process(11, 10), detached, below, application(14, 10, &editor)}),
      "10 11, 12 13, 14");
  // A remote shell's jobs; a sandbox with a session of its own inside.
  auto login = process(10, 5, ProcessRole::shell);
  auto prompt = helperOf(process(11, 10), 10);
  auto job = detached;
  login.session = prompt.session = job.session = below.session = 10;
  EXPECT_EQ(groups({login, prompt, job, below}), "10 11, 12 13");
  below.session = 12;
  EXPECT_EQ(groups({process(10, 5, ProcessRole::wrapper), detached, below}), "12 10 13");
}

TEST(ApplicationGrouping, WrappersHandTheLeadToTheirProgram) {
  auto wrapper = application(10, 1, &editor);
  wrapper.role = ProcessRole::wrapper;
  const auto big = running("program", 13, 10, 5000);
  EXPECT_EQ(groups({wrapper, process(12, 10), big, process(14, 13)}), "13 10 12 14");
  // The program's window names no entry, the script was launched from one: one application.
  EXPECT_EQ(groups({wrapper, big, windowOwner(14, 10)}), "14 10 13");
  // A sandbox is a chain of wrappers.
  EXPECT_EQ(groups({inScope(process(10, 1, ProcessRole::wrapper)),
                    inScope(process(11, 10, ProcessRole::wrapper)), inScope(process(12, 11)),
                    inScope(process(13, 12))}),
            "12 10 11 13");
  // A script that does its work with one tool after the other leads itself, as long as the tools
  // are small; however late the large one starts.
  auto tool = process(11, 10);
  tool.startTime = 5000;
  EXPECT_EQ(groups({process(10, 1, ProcessRole::script), tool}), "10 11");
  tool.residentSize = 101;
  EXPECT_EQ(groups({process(10, 1, ProcessRole::script), tool}), "11 10");
  // A script that runs itself without end must not take time without end.
  std::vector<GroupedProcess> chain;
  for (int pid = 2; pid < 20'000; ++pid)
    chain.push_back(process(pid, pid - 1, ProcessRole::script));
  EXPECT_EQ(groupApplications(chain)[0].leader, chain.size() - 1);
}

TEST(ApplicationGrouping, WhoHoldsTheMemoryLeads) {
  // A runner, the shell it runs, and the program, all started at once or one after the other.
  const auto runner = running("runner", 10, 1, 60);
  auto script = running("sh", 11, 10, 2);
  script.role = ProcessRole::script;
  EXPECT_EQ(groups({runner, script, running("server", 12, 11, 300)}), "12 10 11");
  EXPECT_EQ(groups({runner, script, running("tool", 12, 11, 50)}), "10 11 12");
  // A fork of it in between, and the same interpreter with another program, are nothing else.
  EXPECT_EQ(groups({runner, running("runner", 11, 10, 2), running("db", 12, 11, 300)}), "12 10 11");
  auto first = runner;
  auto second = running("runner", 11, 10, 300);
  first.image = 1;
  second.image = 2;
  second.command = "runner -c code";
  EXPECT_EQ(groups({first, second}), "11 10");
  first.claimed = true;  // as a browser's parts
  EXPECT_EQ(groups({first, second}), "10 11");
  // Who leads stays it while its memory swings.
  auto swinging = running("server", 11, 10, 59);
  EXPECT_EQ(groups({runner, swinging}), "10 11");
  swinging.leads = true;
  EXPECT_EQ(groups({runner, swinging}), "11 10");
  // A shell that reads its commands from a pipe.
  EXPECT_EQ(groups({process(10, 1, ProcessRole::shell), helperOf(process(11, 10), 10)}), "11 10");
  // Workers of the same program end with it, and two large ones are no single program.
  EXPECT_EQ(groups({runner, running("runner", 11, 10, 900)}), "10 11");
  EXPECT_EQ(groups({runner, running("a", 11, 10, 100), running("b", 12, 10, 100)}), "10 11 12");
  // A compiler comes and goes.
  auto compiler = running("compiler", 11, 10, 900);
  compiler.young = true;
  EXPECT_EQ(groups({runner, compiler}), "10 11");
  // A window's owner takes its tools along, and so does an application with an entry, unless it is
  // next to nothing itself. A terminal's shell never leads.
  auto window = windowOwner(10, 1);
  window.residentSize = 10;
  EXPECT_EQ(groups({window, running("server", 11, 10, 900)}), "10 11");
  const auto claimed = application(10, 1, &editor);
  EXPECT_EQ(groups({claimed, running("server", 11, 10, 800)}), "10 11");
  EXPECT_EQ(groups({claimed, running("server", 11, 10, 901)}), "11 10");
  auto shell = running("bash", 11, 10, 9000);
  shell.role = ProcessRole::shell;
  shell.session = 11;
  EXPECT_EQ(groups({claimed, shell}), "10 11");
}

}  // namespace
}  // namespace orvane
