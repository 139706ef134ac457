#pragma once

#include <QtCore/QByteArray>

#include <cstdint>
#include <optional>
#include <string>

namespace orvane {

/// One version offered by an update feed.
struct AppcastItem {
  std::string version;                       ///< holds `isVersion`
  std::optional<std::uint64_t> lengthBytes;  ///< none when the feed doesn't say, or says 0
  std::string notes;                         ///< UTF-8 plain text, at most 4,000 UTF-16 units
  std::string page;                          ///< https address, never empty
};

/// What an update feed offers.
struct Appcast {
  std::optional<AppcastItem> newest;  ///< by version; none when no item of the feed is usable
};

/// Reads an appcast: an RSS 2.0 document whose items carry an enclosure with a version (with or
/// without a namespace prefix) and a length.
///
/// The page of an item is its first https address of: its link, its release notes link, its
/// enclosure. Items without a version or a page don't count. None when the document is no
/// well-formed RSS, is incomplete, is in an encoding that feeds don't use, holds more attributes
/// than any feed (reading takes the longer for each, the more there are), or has a document type
/// (no feed needs one, and with it come entities that expand). Threads: any.
[[nodiscard]] std::optional<Appcast> parseAppcast(const QByteArray& document);

}  // namespace orvane
