#pragma once

#include <compare>
#include <string_view>

namespace orvane {

/// Whether `text` can be a version: at most 64 of letters, digits and ".-+~_", beginning with a
/// digit (a "v" may come before it).
[[nodiscard]] bool isVersion(std::string_view text);

/// Orders two versions as people read them.
///
/// The numbers at the front are compared as numbers, of any length: 1.10 is newer than 1.9, and a
/// missing number is 0, so 1.0 is the same as 1.0.0. What follows the numbers makes a pre-release,
/// older than the version itself: 1.0-rc.1, 1.0~rc1 and 1.0rc1 are older than 1.0. Two pre-releases
/// are compared piece by piece, numbers as numbers and words by letter regardless of case; a number
/// is older than a word and the one with fewer pieces is older. Anything behind "+" (build
/// information) and a "v" at the front don't count.
[[nodiscard]] std::weak_ordering compareVersions(std::string_view left, std::string_view right);

}  // namespace orvane
