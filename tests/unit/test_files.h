#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QTemporaryDir>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace orvane {

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

inline std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string testData(const std::string& name) {
  return readFile(ORVANE_TEST_DATA "/" + name);
}

inline QByteArray appcast(const std::string& name) {
  return QByteArray::fromStdString(testData("appcasts/" + name));
}

/// Sets (or, with none, removes) an environment variable until the end of the scope.
class ScopedEnvironment {
 public:
  ScopedEnvironment(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* previous = std::getenv(name)) previous_ = previous;
    assign(value);
  }
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
  ~ScopedEnvironment() { assign(previous_); }

 private:
  void assign(const std::optional<std::string>& value) const {
    value ? ::setenv(name_, value->c_str(), 1) : ::unsetenv(name_);
  }

  const char* name_;
  std::optional<std::string> previous_;
};

}  // namespace orvane
