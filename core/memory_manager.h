#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/memory_history.h"
#include "core/memory_stats.h"
#include "core/observable.h"
#include "core/process_collection.h"
#include "core/process_info.h"
#include "core/process_memory_history.h"
#include "core/process_sort_mode.h"
#include "core/texts.h"
#include "platform/clock.h"
#include "platform/dispatch.h"
#include "platform/memory_claims.h"
#include "platform/memory_counters.h"
#include "platform/notification_centre.h"
#include "platform/notification_service.h"
#include "platform/preferences.h"
#include "platform/random_source.h"
#include "platform/running_applications.h"
#include "platform/standard_output.h"

namespace orvane {

inline constexpr Duration samplingInterval{5.0};
inline constexpr Duration terminationRefreshDelay{0.5};
inline constexpr const char* sortModePreferenceKey = "processSortMode";

/// The services the model calls. All of them outlive the manager and its pending blocks.
struct MemoryManagerServices {
  MemoryCounters& counters;
  MemoryClaims& claims;
  RunningApplications& applications;
  NotificationService& notifications;
  NotificationCentre& notificationCentre;
  Preferences& preferences;
  MainQueue& mainQueue;
  BackgroundQueue& backgroundQueue;
  TimerService& timers;
  Clock& clock;
  RandomSource& random;
  StandardOutput& output;
  Translate translate = inEnglish;
};

/// The one model object: the current sample, its history, the applications that use most memory,
/// the pressure alert and the boost.
///
/// Main thread only. Every operation returns at once and none reports an error. Each published
/// property announces a change before the new value is stored.
class MemoryManager : public Observable, public std::enable_shared_from_this<MemoryManager> {
 protected:
  /// What only `create` can make.
  class CreationKey {
    friend class MemoryManager;
    CreationKey() = default;
  };

 public:
  /// Makes the manager, takes its first sample and starts the sampling timer.
  template <typename Manager = MemoryManager>
  [[nodiscard]] static std::shared_ptr<Manager> create(const MemoryManagerServices& services) {
    auto manager = std::make_shared<Manager>(CreationKey(), services);
    manager->updateMemoryStats();
    manager->startMonitoring();
    return manager;
  }

  /// For `create`: only the initial values, neither a sample nor a timer.
  MemoryManager(CreationKey key, const MemoryManagerServices& services);

  /// Starts the repeating sampling timer.
  virtual void startMonitoring();
  /// A sample of this moment, none when the counters can't be read.
  [[nodiscard]] virtual std::optional<MemoryStats> fetchMemoryStats();
  /// Moves the current sample to the previous one, takes a new one and adds its history point.
  virtual void updateMemoryStats();
  /// Raises the alert the first time usage is above the threshold.
  virtual void checkMemoryPressure();
  /// Rebuilds the list of applications and their histories.
  virtual void updateTopProcesses();
  /// Ends the application of the record at once, clears the selection and rebuilds the list half a
  /// second later. A failed signal is silent.
  virtual void killProcess(const ProcessInfo& process);
  /// Claims and releases memory in the background and reports the gain; ignored while a boost runs
  /// or there is no sample.
  virtual void boostMemory();
  /// Schedules the next check of the gain of a boost that started at `initial`.
  virtual void scheduleBoostCheck(const MemoryStats& initial, int attempt, int maxAttempts);

  /// Latest sample; none when the last read failed.
  [[nodiscard]] const std::optional<MemoryStats>& currentStats() const {
    return currentStats_.get();
  }
  [[nodiscard]] const std::optional<MemoryStats>& previousStats() const {
    return previousStats_.get();
  }
  /// A boost is running.
  [[nodiscard]] bool isProcessing() const { return isProcessing_.get(); }
  /// MB freed by the last boost, 0 until a gain is found.
  [[nodiscard]] double lastBoostAmount() const { return lastBoostAmount_.get(); }
  /// The largest applications, at most 10, in the order of the sort mode.
  [[nodiscard]] const std::vector<ProcessInfo>& topProcesses() const { return topProcesses_.get(); }
  [[nodiscard]] bool shouldShowAlert() const { return shouldShowAlert_.get(); }
  [[nodiscard]] const std::string& alertMessage() const { return alertMessage_.get(); }
  /// The user's selection; while there is one the list of applications stands still.
  [[nodiscard]] const std::optional<ProcessInfo>& selectedProcess() const {
    return selectedProcess_.get();
  }
  void setSelectedProcess(std::optional<ProcessInfo> process);
  [[nodiscard]] const std::shared_ptr<MemoryHistory>& memoryHistory() const {
    return memoryHistory_.get();
  }
  [[nodiscard]] const ProcessMemoryHistories& processMemoryHistories() const {
    return processMemoryHistories_.get();
  }
  [[nodiscard]] ProcessSortMode processSortMode() const { return processSortMode_.get(); }
  /// Stores the mode and rebuilds the list, also when the mode stays the same.
  void setProcessSortMode(ProcessSortMode mode);
  /// The figure, in MB, by which `process` ranks under `mode`.
  [[nodiscard]] double sortMetric(const ProcessInfo& process, ProcessSortMode mode) const;

  /// Percent of used memory above which the alert is raised.
  static constexpr double alertThreshold = 85.0;

 private:
  static void monitoringTick(const std::weak_ptr<MemoryManager>& weak);
  void sendNotification(const std::string& title, const std::string& body);
  void performBoost(const MemoryStats& initial);
  void finishBoost(const MemoryStats& initial);
  void checkBoostProgress(const MemoryStats& initial, int attempt, int maxAttempts);
  void reportBoost(double freedMB);

  MemoryManagerServices services_;
  ProcessCollection collection_;
  Published<std::optional<MemoryStats>> currentStats_{*this, std::nullopt};
  Published<std::optional<MemoryStats>> previousStats_{*this, std::nullopt};
  Published<bool> isProcessing_{*this, false};
  Published<double> lastBoostAmount_{*this, 0.0};
  Published<std::vector<ProcessInfo>> topProcesses_{*this, {}};
  Published<bool> shouldShowAlert_{*this, false};
  Published<std::string> alertMessage_{*this, {}};
  Published<std::optional<ProcessInfo>> selectedProcess_{*this, std::nullopt};
  Published<std::shared_ptr<MemoryHistory>> memoryHistory_{*this,
                                                           std::make_shared<MemoryHistory>()};
  Published<ProcessMemoryHistories> processMemoryHistories_{*this, {}};
  std::unique_ptr<RepeatingTimer> memoryCheckTimer_;
  Published<ProcessSortMode> processSortMode_;
};

}  // namespace orvane
