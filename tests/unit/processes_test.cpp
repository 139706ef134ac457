// What a made-up /proc tells of processes: the table of them, and the texts that say what one is.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/linux/applications/process_command.h"
#include "platform/linux/applications/process_stat.h"
#include "platform/linux/applications/process_table.h"
#include "platform/linux/applications/systemd_unit.h"
#include "tests/unit/test_support.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;

class ProcessTableTest : public testing::Test {
 protected:
  struct Figures {
    std::string command = "prog";
    char state = 'S';
    int parent = 1, startTime = 500, flags = 4194304;
    int virtualSize = 8192, size = 2, resident = 10;
  };

  void write(int pid, const Figures& figures) const {
    const fs::path folder = root_ / std::to_string(pid);
    fs::create_directories(folder);
    std::error_code there;
    fs::create_symlink("/usr/bin/prog", folder / "exe", there);
    std::ofstream(folder / "stat")
        << pid << " (" << figures.command << ") " << figures.state << ' ' << figures.parent
        << " 1 1 0 -1 " << figures.flags << " 0 0 0 0 0 0 0 0 20 0 3 0 " << figures.startTime << ' '
        << figures.virtualSize << ' ' << figures.resident << " 0 4096 0 0\n";
    std::ofstream(folder / "statm") << figures.size << ' ' << figures.resident << " 4 1 0 1 0\n";
  }

  /// As the kernel does it: the folder of a new process is another one.
  void replace(int pid, const Figures& figures) const {
    fs::rename(root_ / std::to_string(pid), root_ / ("old" + std::to_string(pid)));
    write(pid, figures);
  }

  [[nodiscard]] ProcessTable table(std::size_t held = 1000) const {
    return ProcessTable({.root = root_.string(), .user = ::getuid(), .heldDescriptors = held});
  }

  static std::vector<int> pids(ProcessTable& table) {
    std::vector<int> result;
    for (const auto& [pid, process] : table.processes()) result.push_back(pid);
    return result;
  }

  TestDirectory directory_;
  fs::path root_ = directory_.path();
};

using Pids = std::vector<int>;
const auto page = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));

TEST_F(ProcessTableTest, KeepsTheUsersLivingProcessesOnly) {
  write(30, {.parent = 2, .flags = 69238880});  // a kernel thread
  write(40, {});
  write(41, {.state = 'Z'});
  write(42, {.virtualSize = 0});
  write(44, {});
  fs::remove(root_ / "44/exe");
  fs::create_directories(root_ / "43");  // gone between the listing and the reading
  fs::create_directories(root_ / "self");
  std::ofstream(root_ / "meminfo") << "MemTotal: 1 kB\n";
  auto table = this->table();
  table.update();
  ASSERT_EQ(pids(table), Pids{40});
  const Process& process = table.processes().at(40);
  EXPECT_EQ(process.residentSize, 10 * page);
  EXPECT_EQ(process.sharedSize, 4 * page);
  EXPECT_EQ(process.virtualSize, 2 * page);
  EXPECT_EQ(process.threads, 3);
  EXPECT_TRUE(table.structureChanged());
}

TEST_F(ProcessTableTest, AReusedPidIsAnotherProcessAlsoWithoutDescriptorsToSpare) {
  for (const std::size_t held : {1000u, 0u}) {
    write(40, {});
    auto table = this->table(held);
    table.update();
    table.processes().at(40).needsEvidence = false;
    table.processes().at(40).evidence.name = "first";
    replace(40, {.startTime = 900, .resident = 77});
    table.update();
    ASSERT_EQ(pids(table), Pids{40});
    const Process& next = table.processes().at(40);
    EXPECT_EQ(next.residentSize, 77 * page);
    EXPECT_EQ(next.evidence.name, "");
    EXPECT_TRUE(next.needsEvidence && table.structureChanged());
    fs::remove_all(root_ / "40");
    fs::remove_all(root_ / "old40");
    table.update();
    EXPECT_EQ(pids(table), Pids{});
  }
}

TEST_F(ProcessTableTest, AsksForEvidenceWhileYoungAndAfterAnotherProgramStarted) {
  write(40, {});
  auto table = this->table();
  for (int update = 1; update <= 6; ++update) {
    table.update();
    bool& needed = table.processes().at(40).needsEvidence;
    EXPECT_EQ(needed, update <= 3) << update;
    needed = false;
  }
  EXPECT_FALSE(table.structureChanged());
  write(40, {.command = "other", .size = 3});
  table.update();
  EXPECT_TRUE(table.processes().at(40).needsEvidence);
}

TEST_F(ProcessTableTest, ChildrenOfAnEndedProcessHaveAnotherParentAtOnce) {
  write(40, {});
  write(41, {.parent = 40});
  auto table = this->table();
  for (int i = 0; i < 8; ++i) table.update();
  fs::remove_all(root_ / "40");
  write(41, {.parent = 7});
  table.update();
  EXPECT_EQ(table.processes().at(41).parent, 7);
}

using namespace std::string_literals;

const std::string statTail =
    " S 10 12 13 34816 -1 4194304 77 1 0 0 8 2 0 0 20 -5 6 0 31337 11460608 999"
    " 18446744073709551615 94126336675840 94126336700000 140729 0 0 0 65536 3686404 1266761467"
    " 1 0 0 17 0 0 0 0 0 0 94126336 94126337 94126338 1407 1408 1409 1410 0\n";

TEST(ProcessStat, ReadsFieldsWhateverTheCommandIsCalled) {
  for (const auto& command : {"bash"s, "a) S (b"s, "two\nlines"s, ") "s, ""s, "(sd-pam)"s}) {
    const std::string text = "4 (" + command + ")" + statTail;
    const auto stat = parseProcessStat(text);
    ASSERT_TRUE(stat) << command;
    EXPECT_EQ(stat->command, command);
    EXPECT_EQ(stat->pid, 4);
    EXPECT_EQ(stat->parent, 10);
    EXPECT_EQ(stat->session, 13);
    EXPECT_EQ(stat->threads, 6);
    EXPECT_EQ(stat->startTime, 31337u);
    EXPECT_EQ(stat->virtualSize, 11460608u);
    EXPECT_EQ(stat->startStack, 140729u);
  }
}

TEST(ProcessStat, RefusesWhatIsNoStat) {
  const std::string whole = "4 (bash)" + statTail;
  EXPECT_FALSE(parseProcessStat(whole.substr(0, 70)));
  for (const char* text : {"", "4", "4 (bash", "4 (bash)", "4 (bash) ", ") (", "x (y) S",
                           "0 (bash) S 1 1 1 0 -1 0 0 0 0 0 0 0 0 0 20 0 1 0 5 0 0 0 0 0 0"}) {
    EXPECT_FALSE(parseProcessStat(text)) << text;
  }
}

TEST(ProportionalSize, IsTheLineOfThatName) {
  const std::string head = "5621e934b000-7ffcd1f74000 ---p 00000000 00:00 0  [rollup]\nRss: 9 kB\n";
  EXPECT_EQ(parseProportionalSize(head + "Pss:    769 kB\nPss_Dirty:   112 kB\n"), 769U * 1024);
  for (const char* rest : {"", "Pss_Dirty: 1 kB\n", "Pss:", "Pss: kB\n", "Pss: -1 kB\n",
                           "Pss: 18446744073709551615 kB\n", "SwapPss: 5 kB\n"}) {
    EXPECT_FALSE(parseProportionalSize(head + rest)) << rest;
  }
}

TEST(SystemdUnit, IsTheInnermostApplicationOrService) {
  const std::string slice = "/user.slice/user-1000.slice/user@1000.service/app.slice";
  const struct {
    std::string path, id;
    bool application = true;
    std::string below = {};  // the unit
  } cases[] = {
      {"/app-gnome-org.example.My\\x2dApp-1234.scope", "org.example.My-App"},
      {"/app-org.kde.konsole-5a2f.scope", "org.kde.konsole", true, "/tab(88).scope"},
      {"/app-gnome-at\\x2dspi@autostart.service", "at-spi"},
      {"/app-firefox@0f3a.service", "firefox"},
      {"/app-flatpak-org.gimp.GIMP-2342.scope", "org.gimp.GIMP"},
      {"/snap.code.code.5d7a52c4-1d1c-4ae9-9d4e-0123456789ab.scope", "code_code"},
      {"/app-org.gnome.Terminal.slice/gnome-terminal-server.service", "org.gnome.Terminal"},
      {"/dbus-:1.2-org.gnome.Maps@0.service", "org.gnome.Maps", false},
      {"/pipewire.service", "pipewire", false}};
  for (const auto& [path, id, application, below] : cases) {
    const auto unit = parseControlGroup("0::" + slice + path + below + "\n");
    ASSERT_TRUE(unit) << path;
    EXPECT_EQ(unit->id, id);
    EXPECT_EQ(unit->application, application) << path;
    EXPECT_EQ(unit->path, slice + path);
  }
  for (const std::string& mixed :
       {"0::/"s, "0::/user.slice/user-1000.slice/session-2.scope"s, "0::/../.."s, "0::"s,
        "0::/user.slice/user-1000.slice/user@1000.service/init.scope"s,
        "0::" + slice + "/run-u42.scope", ""s, "nonsense\n1:"s,
        "0::" + slice + "/app-org.gnome.Terminal.slice/vte-spawn-0e2f.scope"}) {
    EXPECT_FALSE(parseControlGroup(mixed + "\n")) << mixed;
  }
}

TEST(SystemdUnit, UnderstandsBothVersionsAtOnce) {
  const std::string scope = "/user.slice/app-x-org.a.B-1.scope";
  const std::string controllers = "12:memory:/user.slice/app-x-org.wrong.One-1.scope\n";
  EXPECT_EQ(parseControlGroup(controllers + "1:name=systemd:" + scope + "\n0::/\n")->id, "org.a.B");
  EXPECT_EQ(parseControlGroup(controllers + "1:name=systemd:/\n0::" + scope + "\n")->id, "org.a.B");
  EXPECT_FALSE(parseControlGroup(controllers + "1:name=systemd:/\n0::/\n"));
}

TEST(LaunchedDesktopFile, CountsOnlyForTheLaunchedProcess) {
  const auto launched = [](const std::string& pid) {
    return parseLaunchedDesktopFile("HOME=/root\0GIO_LAUNCHED_DESKTOP_FILE=/usr/a.desktop\0"s +
                                        "GIO_LAUNCHED_DESKTOP_FILE_PID=" + pid + "\0LANG=C\0"s,
                                    77);
  };
  EXPECT_EQ(launched("77"), "/usr/a.desktop");
  EXPECT_FALSE(launched("76") || launched("77x"));
  EXPECT_FALSE(parseLaunchedDesktopFile("GIO_LAUNCHED_DESKTOP_FILE=/a.desktop", 77));
}

TEST(ExecLine, GivesTheArguments) {
  using Arguments = std::vector<std::string>;
  EXPECT_EQ(parseExecLine("firefox %u"), (Arguments{"firefox"}));
  EXPECT_EQ(parseExecLine("\"/opt/My App/run\"  --title=\"a \\\"b\\\"\" %F"),
            (Arguments{"/opt/My App/run", "--title=a \"b\""}));
  EXPECT_EQ(parseExecLine("env LANG=C GDK_BACKEND=x11 gimp-2.10 %U"), (Arguments{"gimp-2.10"}));
  for (auto line : {"", "  ", "%U", "\"open", "env A=b"}) EXPECT_FALSE(parseExecLine(line)) << line;
}

TEST(ProcessCommand, TellsWhatRuns) {
  const struct {
    std::string executable, line, role, name, path;
  } cases[] = {
      {"/usr/bin/tool", "tool", "program", "tool", "/usr/bin/tool"},
      {"", "agent", "program", "kernel name", ""},
      {"/memfd:sealed", "x", "program", "kernel name", "/memfd:sealed"},
      {"/usr/bin/dash", "/bin/sh -e /a$/app(1)", "script", "app(1)", "/a$/app(1)"},
      {"/usr/bin/bash", "-bash", "shell", "bash", ""},
      {"/usr/bin/zsh", "zsh -i", "shell", "zsh", ""},
      {"/usr/bin/bash", "bash /dev/fd/3", "shell", "bash", ""},
      {"/bin/bash", "bash -c exec/gimp;", "script", "gimp", "exec/gimp"},
      {"/bin/bash", "bash -c while", "script", "bash", ""},
      {"/bin/bash", "bash -c (echo", "script", "bash", ""},
      {"/usr/bin/python3.11", "python3 -u /bin/meld", "program", "meld", "/bin/meld"},
      {"/usr/bin/python3.11", "python3 -m http.server", "program", "http.server", "http.server"},
      {"/usr/bin/python3.11", "python3 -W ignore -c x=1", "program", "python3.11", ""},
      {"/usr/bin/node", "node --require ts app.js", "program", "app.js", "app.js"},
      {"/bin/pythonista", "pythonista x", "program", "pythonista", "/bin/pythonista"},
      {"/usr/bin/bwrap", "bwrap --args 3 app", "wrapper", "bwrap", "/usr/bin/bwrap"},
      {"/bin/xfce4-session", "xfce4-session", "sessionRoot", "xfce4-session", "/bin/xfce4-session"},
      {"/usr/bin/waybar", "waybar", "launcher", "waybar", "/usr/bin/waybar"},
      {"/usr/bin/dash", "sh /usr/bin/startx", "sessionRoot", "startx", "/usr/bin/startx"}};
  const char* roles[] = {"program", "shell", "script", "wrapper", "launcher", "sessionRoot"};
  for (const auto& [executable, line, role, name, path] : cases) {
    std::string zeros = line;
    std::replace(zeros.begin(), zeros.end(), ' ', '\0');
    const auto command = processCommand(executable, parseCommandLine(zeros), "kernel name");
    EXPECT_EQ(roles[static_cast<int>(command.role)], role) << line;
    EXPECT_EQ(command.name, name) << line;
    EXPECT_EQ(command.path, path) << line;
  }
}

}  // namespace
}  // namespace orvane
