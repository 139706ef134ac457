#include "core/pressure_alert.h"

#include "core/number_format.h"

namespace orvane {

std::optional<PressureAlert> pressureAlert(const MemoryStats& stats, double threshold,
                                           const ProcessInfo* top, const Translate& translate) {
  const double usage = stats.usagePercentage();
  if (!(usage > threshold)) return std::nullopt;  // also false for a sample without memory
  const std::string percentage = fixedText(usage, 1) + "%";
  PressureAlert alert{
      .message =
          filled(translate("Memory usage is high (%1)", "alert; %1 is a percentage"), {percentage}),
      .notificationBody = filled(
          translate("Memory usage is %1", "notification; %1 is a percentage"), {percentage})};
  if (top != nullptr) {
    const std::string consumer =
        filled(translate("%1 is using %2 MB", "notification; %1 is an application's name"),
               {top->name, fixedText(megabytes(top->memoryUsage), 0)});
    alert.message += "\n" + consumer;
    alert.notificationBody += ". " + consumer;
  }
  return alert;
}

}  // namespace orvane
