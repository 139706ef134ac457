#pragma once

#include <string>

#include "platform/software_updater.h"

namespace orvane {

/// A result in words: "newest 1.9", "offer 1.10.0", "package manager" or the error.
inline std::string updateWords(const UpdateResult& result) {
  if (const auto* none = std::get_if<UpdateNotNeeded>(&result))
    return "newest " + none->newestVersion;
  if (const auto* offer = std::get_if<UpdateOffer>(&result)) return "offer " + offer->version;
  if (const auto* error = std::get_if<UpdateError>(&result)) return error->message;
  return "package manager";
}

}  // namespace orvane
