#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/running_applications.h"

namespace orvane::fakes {

/// The applications and figures a test sets. An application without figures can't be inspected.
class FakeApplications : public RunningApplications {
 public:
  std::vector<RunningApplication> runningApplications() override {
    ++collectionCount;
    std::vector<RunningApplication> result = applications;
    for (auto& application : result) {
      const std::int32_t pid = application.processIdentifier;
      if (figures.contains(pid)) application.figures = figures.at(pid);
      if (paths.contains(pid)) application.executablePath = paths.at(pid);
      application.handle = std::make_shared<Handle>(*this, pid);
    }
    return result;
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
  std::vector<std::int32_t> killed;
  int collectionCount = 0;

 private:
  struct Handle : ProcessHandle {
    Handle(FakeApplications& of, std::int32_t id) : world(of), pid(id) {}
    void kill() const override { world.killed.push_back(pid); }

    FakeApplications& world;
    std::int32_t pid;
  };
};

}  // namespace orvane::fakes
