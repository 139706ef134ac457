#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// The directories whose memory limits bind a process, from the text of its /proc/PID/cgroup: its
/// own groups and every one above them, under the cgroup file systems at `root`.
[[nodiscard]] std::vector<std::string> memoryCgroupDirectories(std::string_view cgroupFile,
                                                               const std::string& root);

/// Bytes that may still be used before a limit of one of `directories` is reached, the smallest of
/// them (memory.max and memory.high over memory.current, or memory.limit_in_bytes over
/// memory.usage_in_bytes); none when there is no limit.
[[nodiscard]] std::optional<std::uint64_t> memoryHeadroom(
    const std::vector<std::string>& directories);

}  // namespace orvane
