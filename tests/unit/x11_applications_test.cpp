// Applications with windows, on an X server and a window manager of the test's own.
#include <QtGui/QGuiApplication>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_windows.h"
#include "tests/unit/applications_case.h"

namespace orvane {
namespace {

/// An X server on a free display, with a window manager, and this program's connection to it.
class Desktop {
 protected:
  Desktop() {
    const std::string display = files_.path("display"), managed = files_.path("managed");
    server_.emplace(std::vector<std::string>{
        "sh", "-c", "exec Xvfb -displayfd 3 -nolisten tcp -screen 0 800x600x24 3> " + display});
    EXPECT_TRUE(waitUntil([&] { return readFile(display).ends_with('\n'); }));
    const std::string number = readFile(display);
    ::setenv("DISPLAY", (":" + number.substr(0, number.find('\n'))).c_str(), 1);
    ::setenv("QT_QPA_PLATFORM", "xcb", 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    // Windows shown while the window manager starts can stay unmanaged.
    manager_.emplace(std::vector<std::string>{"openbox", "--startup", "touch " + managed});
    EXPECT_TRUE(waitUntil([&] { return fs::exists(managed); }));
    qt_.emplace(count_, name_.data());
  }

 private:
  TestDirectory files_;
  std::optional<ChildProcess> server_, manager_;
  int count_ = 1;
  std::array<char*, 2> name_{const_cast<char*>("test"), nullptr};
  std::optional<QGuiApplication> qt_;
};

class X11ApplicationsTest : private Desktop, public LinuxApplicationsTest {
 protected:
  X11ApplicationsTest() : LinuxApplicationsTest(x11Connection(), "/usr/share/applications") {}

  /// None while the process leads no application.
  std::optional<int> threads(pid_t pid) {
    const auto application = ledBy(pid);
    return application ? application->figures.threadCount : std::nullopt;
  }
};

TEST_F(X11ApplicationsTest, ProgramsAreNamedByTheirEntriesElseByTheirWindows) {
  // A user's shell could start anything.
  const ChildProcess terminal({"xterm", "-e", "sleep", "600"});
  const ChildProcess editor({"mousepad"});
  const ChildProcess strange(
      {addProgram("unknown", "/usr/bin/xterm"), "-class", "Strange", "-e", "sleep", "600"});
  const struct {
    pid_t pid;
    std::string name;
    std::optional<ApplicationIcon> icon;
  } expected[] = {{terminal.pid(), "XTerm", ApplicationIcon{"mini.xterm"}},
                  {editor.pid(), "Mousepad", ApplicationIcon{"org.xfce.mousepad"}},
                  {strange.pid(), "Strange", {}}};
  for (const auto& [pid, name, icon] : expected) {
    std::optional<RunningApplication> found;
    ASSERT_TRUE(waitUntil([&, id = pid] {
      QCoreApplication::processEvents();
      found = ledBy(id);
      return found && found->activationPolicy == ActivationPolicy::regular;
    })) << name;
    EXPECT_EQ(found->localizedName, name);
    EXPECT_EQ(found->icon, icon);
  }
}

TEST_F(X11ApplicationsTest, TellsWindowsFromPartsOfTheDesktop) {
  X11Windows windows(x11Connection());
  const auto has = [](X11Windows& of, const std::string& instance) {
    QCoreApplication::processEvents();
    of.update();
    const auto all = of.windows();
    return std::any_of(all.begin(), all.end(),
                       [&](const X11Window& window) { return window.instance == instance; });
  };
  // A shell could give its window another title.
  const auto terminal = [](const std::string& name) {
    return std::vector<std::string>{"xterm", "-name", name, "-T", name, "-e", "sleep", "600"};
  };
  const ChildProcess first(terminal("ordinary"));
  const ChildProcess second(terminal("panel"));
  ASSERT_TRUE(waitUntil([&] { return has(windows, "ordinary") && has(windows, "panel"); }));
  EXPECT_EQ(windows.windows().front().className, "XTerm");
  for (int i = 0; i < 3; ++i) has(windows, "");
  EXPECT_FALSE(windows.update()) << "nothing changed";

  const ChildProcess dock({"xprop", "-name", "panel", "-f", "_NET_WM_WINDOW_TYPE", "32a", "-set",
                           "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"});
  ASSERT_TRUE(dock.hasExited());
  X11Windows later(x11Connection());
  ASSERT_TRUE(waitUntil([&] { return has(later, "ordinary"); }));
  ASSERT_TRUE(has(later, "panel"));
  for (const auto& one : later.windows()) EXPECT_EQ(one.isDesktopPart, one.instance != "ordinary");
  // What runs in an ordinary terminal is a part of it; what a panel starts is not.
  EXPECT_TRUE(waitUntil([&] { return threads(first.pid()) == 2 && threads(second.pid()) == 1; }));

  ::kill(second.pid(), SIGKILL);
  EXPECT_TRUE(waitUntil([&] { return !has(windows, "panel"); }));
  EXPECT_FALSE(X11Windows(nullptr).update());
}

}  // namespace
}  // namespace orvane
