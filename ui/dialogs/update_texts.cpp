#include "ui/dialogs/update_texts.h"

#include <QCoreApplication>

#include "ui/style/formats.h"

namespace orvane {
namespace {

QString text(const char* english, const char* note) {
  return QCoreApplication::translate("Views", english, note);
}

struct Describe {
  QString runningVersion;

  UpdateTexts operator()(const UpdateNotNeeded& /*newest*/) const {
    return {.headline = text("Orvane is up to date", "headline"),
            .message =
                text("Version %1 is the newest version.", "of an update check").arg(runningVersion),
            .notes = {},
            .primaryButton = text("OK", "button: closes the window"),
            .secondaryButton = {}};
  }

  UpdateTexts operator()(const UpdateOffer& offer) const {
    const QString size = offer.downloadBytes ? QStringLiteral(" (%1)").arg(Format::bytesInMB(
                                                   static_cast<double>(*offer.downloadBytes), 1))
                                             : QString();
    return {.headline = text("A new version is available", "headline"),
            .message = text("Orvane %1 can be downloaded%2. You have version %3.",
                            "%2 is empty or a size in brackets")
                           .arg(QString::fromStdString(offer.version), size, runningVersion),
            .notes = QString::fromStdString(offer.notes),
            .primaryButton = text("Open Download Page", "button"),
            .secondaryButton = text("Later", "button: closes the window")};
  }

  UpdateTexts operator()(const UpdateByPackageManager& /*none*/) const {
    return {.headline = text("Updates come with your system", "headline"),
            .message = text("Your system's package manager keeps this copy of Orvane, "
                            "version %1, up to date.",
                            "of an update check")
                           .arg(runningVersion),
            .notes = {},
            .primaryButton = text("OK", "button: closes the window"),
            .secondaryButton = {}};
  }

  UpdateTexts operator()(const UpdateError& error) const {
    return {.headline = text("The check didn't succeed", "headline"),
            .message = QString::fromStdString(error.message),
            .notes = {},
            .primaryButton = text("Try Again", "button"),
            .secondaryButton = text("Close", "button")};
  }
};

}  // namespace

UpdateTexts updateCheckingTexts() {
  return {.headline = text("Checking for updates...", "headline"),
          .message = {},
          .notes = {},
          .primaryButton = {},
          .secondaryButton = text("Cancel", "button: ends the check"),
          .checking = true};
}

UpdateTexts updateResultTexts(const UpdateResult& result, std::string_view runningVersion) {
  return std::visit(Describe{QString::fromUtf8(runningVersion.data(),
                                               static_cast<qsizetype>(runningVersion.size()))},
                    result);
}

}  // namespace orvane
