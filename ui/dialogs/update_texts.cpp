#include "ui/dialogs/update_texts.h"

#include "ui/style/formats.h"

namespace orvane {
namespace {

struct Describe {
  QString runningVersion;

  UpdateTexts operator()(const UpdateNotNeeded& /*newest*/) const {
    return {.headline = QStringLiteral("Orvane is up to date"),
            .message = QStringLiteral("Version %1 is the newest version.").arg(runningVersion),
            .notes = {},
            .primaryButton = QStringLiteral("OK"),
            .secondaryButton = {}};
  }

  UpdateTexts operator()(const UpdateOffer& offer) const {
    const QString size = offer.downloadBytes ? QStringLiteral(" (%1)").arg(Format::bytesInMB(
                                                   static_cast<double>(*offer.downloadBytes), 1))
                                             : QString();
    return {.headline = QStringLiteral("A new version is available"),
            .message = QStringLiteral("Orvane %1 can be downloaded%2. You have version %3.")
                           .arg(QString::fromStdString(offer.version), size, runningVersion),
            .notes = QString::fromStdString(offer.notes),
            .primaryButton = QStringLiteral("Open Download Page"),
            .secondaryButton = QStringLiteral("Later")};
  }

  UpdateTexts operator()(const UpdateByPackageManager& /*none*/) const {
    return {.headline = QStringLiteral("Updates come with your system"),
            .message = QStringLiteral("Your system's package manager keeps this copy of Orvane, "
                                      "version %1, up to date.")
                           .arg(runningVersion),
            .notes = {},
            .primaryButton = QStringLiteral("OK"),
            .secondaryButton = {}};
  }

  UpdateTexts operator()(const UpdateError& error) const {
    return {.headline = QStringLiteral("The check didn't succeed"),
            .message = QString::fromStdString(error.message),
            .notes = {},
            .primaryButton = QStringLiteral("Try Again"),
            .secondaryButton = QStringLiteral("Close")};
  }
};

}  // namespace

UpdateTexts updateCheckingTexts() {
  return {.headline = QStringLiteral("Checking for updates..."),
          .message = {},
          .notes = {},
          .primaryButton = {},
          .secondaryButton = QStringLiteral("Cancel"),
          .checking = true};
}

UpdateTexts updateResultTexts(const UpdateResult& result, std::string_view runningVersion) {
  return std::visit(Describe{QString::fromUtf8(runningVersion.data(),
                                               static_cast<qsizetype>(runningVersion.size()))},
                    result);
}

}  // namespace orvane
