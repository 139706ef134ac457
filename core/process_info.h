#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/uuid.h"
#include "platform/running_applications.h"

namespace orvane {

/// One listed application. Two records are equal when their `id`s are; every collection makes new
/// ones, so a record of an earlier list equals none of the current list.
struct ProcessInfo {
  Uuid id = Uuid::random();
  std::string name;
  std::uint64_t memoryUsage = 0;  ///< bytes: what the application holds, or an estimate
  std::int32_t pid = 0;           ///< of the leading process
  std::optional<ApplicationIcon> icon;
  int threadCount = 0;  ///< 0 when unknown
  double cpuUsage = 0;  ///< nothing measures it
  int ports = 0;        ///< nothing measures it
  std::string processPath;
  std::uint64_t privateMemory = 0;  ///< bytes, always `memoryUsage`
  std::uint64_t virtualMemory = 0;  ///< bytes
  std::string distinction;          ///< as in RunningApplication
  /// Which process exactly the record was made from, however often its `pid` is reused.
  std::shared_ptr<const ProcessHandle> handle;

  bool operator==(const ProcessInfo& other) const { return id == other.id; }
};

}  // namespace orvane

template <>
struct std::hash<orvane::ProcessInfo> {
  std::size_t operator()(const orvane::ProcessInfo& process) const noexcept {
    return std::hash<orvane::Uuid>{}(process.id);
  }
};
