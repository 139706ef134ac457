#pragma once

#include <QtQml/qqmlregistration.h>
#include <QFont>
#include <QObject>
#include <QStringList>

#include "ui/model/process_record.h"

namespace orvane {

/// The texts of the list of applications.
class ProcessText : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  /// "Last 5 min" for a history of so many points; empty while it is shorter than a minute.
  Q_INVOKABLE [[nodiscard]] static QString historyDuration(int points);

  /// The labels of a chart's four grid lines, from `peak` at the top to `minimum` at the bottom: MB
  /// without a unit, truncated towards zero.
  Q_INVOKABLE [[nodiscard]] static QStringList gridLabels(double peak, double minimum);

  /// Where an application's executable is, or its process id where that is unknown.
  Q_INVOKABLE [[nodiscard]] static QString location(const orvane::ProcessRecord& record);

  /// "PID: 4242", and what tells the application apart where others have its name.
  Q_INVOKABLE [[nodiscard]] static QString identity(const orvane::ProcessRecord& record);

  /// What the user is asked before an application is ended.
  Q_INVOKABLE [[nodiscard]] static QString killQuestion(const orvane::ProcessRecord& record);

  /// `text` cut in its middle to as many lines of `width` points as it may have, broken anywhere.
  Q_INVOKABLE [[nodiscard]] static QString middleElided(const QString& text, const QFont& font,
                                                        double width, int lines);

  /// What the characters [from, to) of `cut` stand for, `cut` being `text` or a middleElided of it:
  /// what was left out is part of it when the mark in its place is.
  [[nodiscard]] static QString uncutPart(const QString& text, const QString& cut, int from, int to);

  /// Puts an uncutPart on the clipboard, or into the selection that a middle click pastes where
  /// the desktop has one. Nothing for an empty part.
  Q_INVOKABLE static void copyPart(const QString& text, const QString& cut, int from, int to,
                                   bool forMiddleClick);
};

}  // namespace orvane
