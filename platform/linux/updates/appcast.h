#pragma once

#include <QtCore/QByteArray>

#include <string>

#include "platform/software_updater.h"

namespace orvane {

/// An error in the user's language, from the English text and a note for who translates it.
[[nodiscard]] UpdateError updateError(const char* english, const char* note = "of an update check");

/// What an update feed means for the running version.
///
/// A feed is an RSS 2.0 document whose items carry an enclosure with a version (with or without a
/// namespace prefix) and a length in bytes. The newest version counts. The page of an item is its
/// first https address of: its link, its release notes link, its enclosure. Items without a page or
/// a readable version don't count.
///
/// Versions are ordered by their numbers: 1.10 is newer than 1.9, and 1.0 the same as 1.0.0. What
/// follows the numbers makes a pre-release, older than the version itself: 1.0-rc.1, 1.0~rc1 and
/// 1.0rc1 are older than 1.0. Anything behind "+" and a "v" at the front don't count.
///
/// The notes are the description's text, without its markup and without characters that could
/// disguise it; at most 4,000 UTF-16 units, the last one an ellipsis where they were cut.
///
/// An `UpdateError` when the document is no complete RSS, has a document type (no feed needs one,
/// and with it come entities that expand), or holds no item that counts. Threads: main thread only.
[[nodiscard]] UpdateResult readAppcast(const QByteArray& feed, const std::string& runningVersion);

}  // namespace orvane
