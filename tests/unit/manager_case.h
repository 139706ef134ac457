#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "core/memory_manager.h"
#include "testing/fake_services.h"

namespace orvane {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint64_t mebibyte = 1ULL << 20;

/// The model on fake services.
class ManagerCase : public testing::Test {
 protected:
  void start() { manager_ = MemoryManager::create(fakes_.services()); }
  /// Passes the time until the next sample.
  void tick() { fakes_.time.advance(samplingInterval); }

  /// How many points there are in the history of the machine, and of an application.
  [[nodiscard]] std::size_t samples() const {
    return manager_->memoryHistory()->dataPoints().size();
  }
  [[nodiscard]] std::size_t points(std::int32_t pid) const {
    return manager_->processMemoryHistories().at(pid)->dataPoints().size();
  }

  fakes::FakeServices fakes_;
  std::shared_ptr<MemoryManager> manager_;
};

}  // namespace orvane
