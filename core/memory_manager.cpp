#include "core/memory_manager.h"

#include <utility>

#include "core/memory_boost.h"
#include "core/pressure_alert.h"

namespace orvane {
namespace {

constexpr const char* titleNote = "title of a notification";

ProcessSortMode storedSortMode(const Preferences& preferences) {
  const auto text = preferences.text(sortModePreferenceKey);
  return text ? processSortModeFrom(*text).value_or(ProcessSortMode::current)
              : ProcessSortMode::current;
}

}  // namespace

MemoryManager::MemoryManager(CreationKey /*key*/, const MemoryManagerServices& services)
    : services_(services),
      collection_(services.applications, services.random, services.clock),
      processSortMode_(*this, storedSortMode(services.preferences)) {}

void MemoryManager::startMonitoring() {
  memoryCheckTimer_ = services_.timers.repeat(samplingInterval,
                                              [weak = weak_from_this()] { monitoringTick(weak); });
}

void MemoryManager::monitoringTick(const std::weak_ptr<MemoryManager>& weak) {
  if (const auto self = weak.lock()) self->updateMemoryStats();
  if (const auto self = weak.lock()) self->checkMemoryPressure();
  if (const auto self = weak.lock(); self && !self->selectedProcess()) self->updateTopProcesses();
}

std::optional<MemoryStats> MemoryManager::fetchMemoryStats() {
  const auto counts = services_.counters.read();
  if (!counts) return std::nullopt;
  return MemoryStats::fromCounters(*counts, services_.counters.pageSize(), services_.clock.now());
}

void MemoryManager::updateMemoryStats() {
  previousStats_.set(currentStats());
  currentStats_.set(fetchMemoryStats());
  if (currentStats()) memoryHistory()->addDataPoint(*currentStats());
}

void MemoryManager::checkMemoryPressure() {
  if (!currentStats()) return;
  const ProcessInfo* top = topProcesses().empty() ? nullptr : &topProcesses().front();
  const auto alert = pressureAlert(*currentStats(), alertThreshold, top, services_.translate);
  if (!alert || shouldShowAlert()) return;
  alertMessage_.set(alert->message);
  sendNotification(services_.translate(pressureNotificationTitle, titleNote),
                   alert->notificationBody);
  shouldShowAlert_.set(true);
}

void MemoryManager::sendNotification(const std::string& title, const std::string& body) {
  const NotificationRequest request{
      .identifier = Uuid::random().text(),
      .content = {.title = title, .body = body, .defaultSound = true}};
  services_.notifications.add(
      request, [&output = services_.output, title, body](const NotificationService::Error& error) {
        output.printLine(error ? "Error sending notification: " + *error
                               : "Notification sent successfully: " + title + " - " + body);
      });
}

void MemoryManager::updateTopProcesses() {
  auto processes = collection_.collect(processMemoryHistories_);
  sortProcesses(processes, processSortMode(), processMemoryHistories());
  if (processes.size() > topProcessCount) processes.resize(topProcessCount);
  topProcesses_.set(std::move(processes));
  collection_.prune(processMemoryHistories_);
}

void MemoryManager::killProcess(const ProcessInfo& process) {
  if (process.handle) process.handle->kill();
  selectedProcess_.set(std::nullopt);
  services_.mainQueue.after(terminationRefreshDelay,
                            [self = shared_from_this()] { self->updateTopProcesses(); });
}

void MemoryManager::setSelectedProcess(std::optional<ProcessInfo> process) {
  selectedProcess_.set(std::move(process));
}

void MemoryManager::setProcessSortMode(ProcessSortMode mode) {
  processSortMode_.set(mode);
  services_.preferences.setText(sortModePreferenceKey, rawValue(mode));
  updateTopProcesses();
}

double MemoryManager::sortMetric(const ProcessInfo& process, ProcessSortMode mode) const {
  return orvane::sortMetric(process, mode, processMemoryHistories());
}

void MemoryManager::boostMemory() {
  if (isProcessing() || !currentStats()) return;
  const MemoryStats initial = *currentStats();
  isProcessing_.set(true);
  lastBoostAmount_.set(0.0);
  performBoost(initial);
}

// The background block must not keep the manager alive while it sleeps: released there, the last
// reference would end the model on the wrong thread. It works on its own copies instead.
void MemoryManager::performBoost(const MemoryStats& initial) {
  services_.backgroundQueue.async([weak = weak_from_this(), services = services_, initial] {
    if (weak.expired()) return;
    claimAndRelease(initial, services.claims, services.random, services.backgroundQueue);
    services.mainQueue.async([weak, initial] {
      if (const auto self = weak.lock()) self->finishBoost(initial);
    });
  });
}

void MemoryManager::finishBoost(const MemoryStats& initial) {
  updateMemoryStats();
  isProcessing_.set(false);
  services_.notificationCentre.post(boostCompletedName);
  scheduleBoostCheck(initial, 0, boostCheckCount);
}

void MemoryManager::scheduleBoostCheck(const MemoryStats& initial, int attempt, int maxAttempts) {
  if (attempt < maxAttempts) {
    services_.mainQueue.after(boostCheckInterval,
                              [weak = weak_from_this(), initial, attempt, maxAttempts] {
                                if (const auto self = weak.lock())
                                  self->checkBoostProgress(initial, attempt, maxAttempts);
                              });
    return;
  }
  if (!currentStats()) return;
  if (const auto freed = significantGainAtEnd(initial, *currentStats())) reportBoost(*freed);
}

void MemoryManager::checkBoostProgress(const MemoryStats& initial, int attempt, int maxAttempts) {
  updateMemoryStats();
  if (!currentStats()) return;
  if (const auto freed = significantGainAtCheck(initial, *currentStats())) {
    reportBoost(*freed);
    return;
  }
  scheduleBoostCheck(initial, attempt + 1, maxAttempts);
}

void MemoryManager::reportBoost(double freedMB) {
  lastBoostAmount_.set(freedMB);
  sendNotification(services_.translate(boostNotificationTitle, titleNote),
                   boostNotificationBody(freedMB, services_.translate));
}

}  // namespace orvane
