// Applications with windows, on an X server and a window manager of the test's own.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QtGui/QGuiApplication>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>

#include "platform/linux/applications/linux_applications.h"
#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_windows.h"
#include "tests/fakes/virtual_time.h"
#include "tests/unit/child_process.h"
#include "tests/unit/test_files.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;
using Environment = std::vector<std::pair<std::string, std::string>>;

/// An X server on a free display, with a window manager.
class Desktop {
 public:
  Desktop() {
    std::array<int, 2> answer{};
    if (::pipe(answer.data()) != 0) return;
    const FileDescriptor reader(answer[0]);
    {
      const FileDescriptor writer(answer[1]);
      server_.emplace(std::vector<std::string>{"Xvfb", "-displayfd", std::to_string(writer.get()),
                                               "-nolisten", "tcp", "-screen", "0", "800x600x24"});
    }
    std::string number;
    char digit = 0;
    while (::read(reader.get(), &digit, 1) == 1 && digit != '\n') number += digit;
    display_ = ":" + number;
    // Windows shown while the window manager starts can stay unmanaged.
    const fs::path started = fs::temp_directory_path() / ("openbox-" + std::to_string(::getpid()));
    manager_.emplace(std::vector<std::string>{"openbox", "--startup", "touch " + started.string()},
                     environment());
    EXPECT_TRUE(eventually([&] { return fs::remove(started); }));
  }

  [[nodiscard]] Environment environment() const {
    return {{"DISPLAY", display_}, {"XDG_SESSION_TYPE", "x11"}, {"LC_ALL", "C.UTF-8"}};
  }
  [[nodiscard]] const std::string& display() const { return display_; }

 private:
  std::string display_;
  std::optional<ChildProcess> server_;
  std::optional<ChildProcess> manager_;
};

class X11ApplicationsTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    sharedDesktop = std::make_unique<Desktop>();
    ::setenv("DISPLAY", sharedDesktop->display().c_str(), 1);
    ::setenv("QT_QPA_PLATFORM", "xcb", 1);
    static int count = 1;
    static std::array name{const_cast<char*>("test"), static_cast<char*>(nullptr)};
    qtApplication = std::make_unique<QGuiApplication>(count, name.data());
  }
  static void TearDownTestSuite() {
    qtApplication.reset();
    sharedDesktop.reset();
  }

  std::optional<RunningApplication> ledBy(pid_t pid) {
    for (auto& application : applications_.runningApplications()) {
      if (application.processIdentifier == pid) return application;
    }
    return {};
  }

  /// None while the process leads no application.
  std::optional<int> threadsOf(pid_t pid) {
    const auto application = ledBy(pid);
    return application ? application->figures.threadCount : std::nullopt;
  }

  /// Waits until the process leads an application with a window.
  std::optional<RunningApplication> awaitRegular(pid_t pid) {
    std::optional<RunningApplication> application;
    eventually([&] {
      QCoreApplication::processEvents();
      application = ledBy(pid);
      return application && application->activationPolicy == ActivationPolicy::regular;
    });
    return application;
  }

  fakes::VirtualTime time_;
  LinuxApplications applications_{{.x11 = x11Connection(),
                                   .applicationDirectories = {"/usr/share/applications"},
                                   .descriptorLimit = 4000,
                                   .isWatched = {}},
                                  time_,
                                  time_};
  static inline std::unique_ptr<Desktop> sharedDesktop;
  static inline std::unique_ptr<QGuiApplication> qtApplication;
};

TEST_F(X11ApplicationsTest, ProgramsAreNamedByTheirEntriesElseByTheirWindows) {
  // A user's shell could start anything.
  const ChildProcess terminal({"xterm", "-e", "sleep", "600"}, sharedDesktop->environment());
  const ChildProcess editor({"mousepad"}, sharedDesktop->environment());
  const ChildProcess calculator({"galculator"}, sharedDesktop->environment());
  const TestDirectory directory;
  const std::string unknown = directory.path("unknown");
  fs::copy_file(fs::canonical("/usr/bin/xterm"), unknown);
  const ChildProcess strange({unknown, "-class", "Strange", "-e", "sleep", "600"},
                             sharedDesktop->environment());
  const struct {
    pid_t pid;
    std::string name;
    std::optional<ApplicationIcon> icon;
  } expected[] = {{terminal.pid(), "XTerm", ApplicationIcon{"mini.xterm"}},
                  {editor.pid(), "Mousepad", ApplicationIcon{"org.xfce.mousepad"}},
                  {calculator.pid(), "Galculator", ApplicationIcon{"galculator"}},
                  {strange.pid(), "Strange", {}}};
  for (const auto& application : expected) {
    const auto found = awaitRegular(application.pid);
    ASSERT_TRUE(found) << application.name;
    EXPECT_EQ(found->localizedName, application.name);
    EXPECT_EQ(found->icon, application.icon);
    EXPECT_EQ(found->activationPolicy, ActivationPolicy::regular);
  }
  EXPECT_TRUE(eventually([&] { return threadsOf(terminal.pid()) == 2; }))
      << "the terminal with what runs in it";
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
  const ChildProcess first(terminal("ordinary"), sharedDesktop->environment());
  const ChildProcess second(terminal("panel"), sharedDesktop->environment());
  ASSERT_TRUE(eventually([&] { return has(windows, "ordinary") && has(windows, "panel"); }));
  EXPECT_EQ(windows.windows().front().className, "XTerm");
  for (int i = 0; i < 3; ++i) has(windows, "");
  EXPECT_FALSE(windows.update()) << "nothing changed";

  ChildProcess dock({"xprop", "-name", "panel", "-f", "_NET_WM_WINDOW_TYPE", "32a", "-set",
                     "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"},
                    sharedDesktop->environment());
  ASSERT_TRUE(dock.hasExited());
  X11Windows later(x11Connection());
  ASSERT_TRUE(eventually([&] { return has(later, "ordinary"); }));
  ASSERT_TRUE(has(later, "panel"));
  for (const auto& window : later.windows()) {
    EXPECT_EQ(window.isDesktopPart, window.instance != "ordinary");
  }
  // What runs in an ordinary terminal is a part of it; what a panel starts is not.
  EXPECT_TRUE(
      eventually([&] { return threadsOf(first.pid()) == 2 && threadsOf(second.pid()) == 1; }));

  ::kill(second.pid(), SIGKILL);
  EXPECT_TRUE(eventually([&] { return !has(windows, "panel"); }));
  EXPECT_FALSE(X11Windows(nullptr).update());
}

}  // namespace
}  // namespace orvane
