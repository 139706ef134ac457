#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

#include <string_view>

#include "platform/software_updater.h"

namespace orvane {

/// What the update window says and offers for one state of a check.
struct UpdateTexts {
  Q_GADGET
  QML_VALUE_TYPE(updateTexts)

  Q_PROPERTY(bool checking MEMBER checking CONSTANT)
  Q_PROPERTY(QString headline MEMBER headline CONSTANT)
  Q_PROPERTY(QString message MEMBER message CONSTANT)
  Q_PROPERTY(QString notes MEMBER notes CONSTANT)
  Q_PROPERTY(QString primaryButton MEMBER primaryButton CONSTANT)
  Q_PROPERTY(QString secondaryButton MEMBER secondaryButton CONSTANT)

 public:
  QString headline;
  QString message;
  QString notes;            ///< plain text; empty hides the box
  QString primaryButton;    ///< empty hides the button
  QString secondaryButton;  ///< empty hides the button
  bool checking = false;
};

/// While the check runs.
[[nodiscard]] UpdateTexts updateCheckingTexts();

/// When it has ended. `runningVersion` is this program's own.
[[nodiscard]] UpdateTexts updateResultTexts(const UpdateResult& result,
                                            std::string_view runningVersion);

}  // namespace orvane
