#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/linux/application_grouping.h"

namespace orvane {

/// Started earlier; among equals the one with the smaller pid.
[[nodiscard]] bool isOlder(const GroupedProcess& a, const GroupedProcess& b);

/// Sets the group's root and its leader, the process whose death ends the application.
///
/// The root is the topmost process: one above a window if there are several, else the oldest. It
/// leads, unless it is a wrapper. A killed wrapper leaves its program running, whereas the end of
/// the program ends the wrapper, so the program it was started for leads: the one with a window,
/// else the largest of those it started right away.
/// `parents` are indices of `processes`, or -1.
void chooseLeader(std::span<const GroupedProcess> processes,
                  const std::vector<std::size_t>& parents, ApplicationGroup& group);

}  // namespace orvane
