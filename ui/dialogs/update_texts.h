#pragma once

#include <QString>

#include <string_view>

#include "platform/software_updater.h"

namespace orvane {

/// What the update window says and offers for one state of a check.
struct UpdateTexts {
  QString headline;
  QString message;
  QString notes;            ///< plain text; empty hides the box
  QString primaryButton;    ///< empty hides the button
  QString secondaryButton;  ///< empty hides the button

  bool operator==(const UpdateTexts&) const = default;
};

/// While the check runs.
[[nodiscard]] UpdateTexts updateCheckingTexts();

/// When it has ended. `runningVersion` is this program's own.
[[nodiscard]] UpdateTexts updateResultTexts(const UpdateResult& result,
                                            std::string_view runningVersion);

}  // namespace orvane
