#pragma once

#include <QtCore/qtestsupport_core.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QTemporaryDir>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace orvane {

/// Runs the event loop until `condition` holds; false when it doesn't, however slow the machine is.
template <typename Condition>
bool waitUntil(Condition condition) {
  return QTest::qWaitFor(condition, 20000);
}

/// A directory of its own for one test.
class TestDirectory {
 public:
  [[nodiscard]] std::string path(std::string_view name = {}) const {
    const std::string folder = directory_.path().toStdString();
    return name.empty() ? folder : folder + "/" + std::string(name);
  }

  /// Makes the file, and the directories above it, with `content`; returns its path.
  std::string write(std::string_view name, std::string_view content) const {
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary | std::ios::trunc) << content;
    return path(name);
  }

 private:
  QTemporaryDir directory_;
};

/// Makes a pipe that nobody writes to. Returns its path.
inline std::string makePipe(const std::string& path) {
  return ::mkfifo(path.c_str(), 0600) == 0 ? path : std::string();
}

/// Runs `work` beside the test. False when it waits for something of `obstacle`, a pipe or a
/// folder, which is removed then so that it ends all the same.
inline bool endsDespite(const std::string& obstacle, const std::function<void()>& work) {
  const auto ended = std::async(std::launch::async, work);
  if (ended.wait_for(std::chrono::seconds(10)) == std::future_status::ready) return true;
  const int writer = ::open(obstacle.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
  std::filesystem::remove(obstacle);
  if (writer >= 0) ::close(writer);
  ended.wait();
  return false;
}

inline std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string testData(const std::string& name) {
  return readFile(ORVANE_TEST_DATA "/" + name);
}

/// Sets (or, with none, removes) an environment variable until the end of the scope.
class ScopedEnvironment {
 public:
  ScopedEnvironment(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* previous = std::getenv(name)) previous_ = previous;
    assign(value);
  }
  ~ScopedEnvironment() { assign(previous_); }
  Q_DISABLE_COPY_MOVE(ScopedEnvironment)

 private:
  void assign(const std::optional<std::string>& value) const {
    value ? ::setenv(name_, value->c_str(), 1) : ::unsetenv(name_);
  }

  const char* name_;
  std::optional<std::string> previous_;
};

}  // namespace orvane
