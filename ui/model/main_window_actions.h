#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "ui/model/process_record.h"
#include "ui/views.h"

namespace orvane {

/// The main window's closures as calls for QML.
class MainWindowActions : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made with the main window")

 public:
  explicit MainWindowActions(MainWindowClosures closures, QObject* parent = nullptr);

  /// Shows the executable of an application in the desktop's file manager; nothing without a path.
  Q_INVOKABLE void revealExecutable(const orvane::ProcessRecord& record) const;
  Q_INVOKABLE void contactSupport() const { run(closures_.contactSupport); }
  Q_INVOKABLE void checkForUpdates() const { run(closures_.checkForUpdates); }
  Q_INVOKABLE void quit() const { run(closures_.quit); }
  Q_INVOKABLE void closeWindow() const { run(closures_.closeWindow); }
  Q_INVOKABLE void minimize() const { run(closures_.minimize); }
  Q_INVOKABLE void showAbout() const { run(closures_.showAbout); }

 private:
  static void run(const std::function<void()>& closure);

  MainWindowClosures closures_;
};

}  // namespace orvane
