#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "core/process_info.h"
#include "core/process_memory_history.h"

namespace orvane {

/// By which figure the list of applications is ordered and labelled.
enum class ProcessSortMode { current, average, peak };

/// "current", "average" or "peak": the form in which the mode is stored.
[[nodiscard]] std::string_view rawValue(ProcessSortMode mode);

/// The mode stored as `text`; none when no mode has that text.
[[nodiscard]] std::optional<ProcessSortMode> processSortModeFrom(std::string_view text);

/// The figure, in MB, by which `process` ranks under `mode`. Without a history of its own an
/// application ranks by its current figure.
[[nodiscard]] double sortMetric(const ProcessInfo& process, ProcessSortMode mode,
                                const ProcessMemoryHistories& histories);

/// Orders by the figure of `mode`, the largest first; equal ones keep their order.
void sortProcesses(std::vector<ProcessInfo>& processes, ProcessSortMode mode,
                   const ProcessMemoryHistories& histories);

}  // namespace orvane
