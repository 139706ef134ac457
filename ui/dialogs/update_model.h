#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include <optional>
#include <string>

#include "ui/dialogs/update_texts.h"
#include "ui/views.h"

namespace orvane {

/// One update check as its window shows it.
class UpdateModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made with the update window")

  Q_PROPERTY(bool checking READ isChecking NOTIFY changed)
  Q_PROPERTY(QString headline READ headline NOTIFY changed)
  Q_PROPERTY(QString message READ message NOTIFY changed)
  Q_PROPERTY(QString notes READ notes NOTIFY changed)
  Q_PROPERTY(QString primaryButton READ primaryButton NOTIFY changed)
  Q_PROPERTY(QString secondaryButton READ secondaryButton NOTIFY changed)

 public:
  UpdateModel(UpdateClosures closures, std::string runningVersion, QObject* parent = nullptr);

  void setChecking();
  void setResult(const UpdateResult& result);

  [[nodiscard]] bool isChecking() const { return !result_; }
  [[nodiscard]] const QString& headline() const { return texts_.headline; }
  [[nodiscard]] const QString& message() const { return texts_.message; }
  [[nodiscard]] const QString& notes() const { return texts_.notes; }
  [[nodiscard]] const QString& primaryButton() const { return texts_.primaryButton; }
  [[nodiscard]] const QString& secondaryButton() const { return texts_.secondaryButton; }

  /// The buttons. Every one but "Try Again" also closes the window.
  Q_INVOKABLE void pressPrimary();
  Q_INVOKABLE void pressSecondary();

 Q_SIGNALS:
  void changed();

 private:
  void close() const;

  UpdateClosures closures_;
  std::string runningVersion_;
  std::optional<UpdateResult> result_;
  UpdateTexts texts_ = updateCheckingTexts();
};

}  // namespace orvane
