#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/running_applications.h"
#include "platform/task_inspector.h"

namespace orvane::fakes {

/// The applications and figures a test sets. An application without figures can't be inspected.
class FakeApplications : public RunningApplications, public TaskInspector {
 public:
  std::vector<RunningApplication> runningApplications() override {
    ++collectionCount;
    return applications;
  }
  std::optional<TaskFigures> taskFigures(std::int32_t pid) override {
    const auto found = figures.find(pid);
    return found == figures.end() ? std::nullopt : std::optional(found->second);
  }
  std::optional<std::string> executablePath(std::int32_t pid) override {
    const auto found = paths.find(pid);
    return found == paths.end() ? std::nullopt : std::optional(found->second);
  }

  /// Adds a regular application with a readable task.
  void add(std::int32_t pid, std::string name, std::uint64_t residentBytes, int threads = 4) {
    applications.push_back({.processIdentifier = pid,
                            .localizedName = std::move(name),
                            .activationPolicy = ActivationPolicy::regular});
    setResident(pid, residentBytes, threads);
  }
  void setResident(std::int32_t pid, std::uint64_t residentBytes, int threads = 4) {
    figures[pid] = {
        .virtualSize = residentBytes * 4, .residentSize = residentBytes, .threadCount = threads};
  }
  void remove(std::int32_t pid) {
    std::erase_if(applications, [pid](const auto& a) { return a.processIdentifier == pid; });
    figures.erase(pid);
  }

  std::vector<RunningApplication> applications;
  std::map<std::int32_t, TaskFigures> figures;
  std::map<std::int32_t, std::string> paths;
  int collectionCount = 0;
};

}  // namespace orvane::fakes
