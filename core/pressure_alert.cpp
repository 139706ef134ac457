#include "core/pressure_alert.h"

#include "core/number_format.h"

namespace orvane {

std::optional<PressureAlert> pressureAlert(const MemoryStats& stats, double threshold,
                                           const ProcessInfo* top) {
  const double usage = stats.usagePercentage();
  if (!(usage > threshold)) return std::nullopt;  // also false for a sample without memory
  const std::string percentage = fixedText(usage, 1) + "%";
  PressureAlert alert{.message = "Memory usage is high (" + percentage + ")",
                      .notificationBody = "Memory usage is " + percentage};
  if (top != nullptr) {
    const std::string consumer =
        top->name + " is using " + fixedText(megabytes(top->memoryUsage), 0) + " MB";
    alert.message += "\n" + consumer;
    alert.notificationBody += ". " + consumer;
  }
  return alert;
}

}  // namespace orvane
