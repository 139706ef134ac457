#pragma once

#include <QtQml/qqmlregistration.h>
#include <QFont>
#include <QObject>
#include <QStringList>

#include "ui/model/process_record.h"

namespace orvane {

/// Seconds between two points of an application's history.
inline constexpr int historySecondsPerPoint = 5;

/// "Last 5 min" for a history of so many points; empty while it is shorter than a minute.
[[nodiscard]] QString historyDurationText(int points);

/// The labels of a chart's four grid lines, from `peak` at the top to `minimum` at the bottom: MB
/// without a unit, truncated towards zero.
[[nodiscard]] QStringList historyGridLabels(double peak, double minimum);

/// Where an application's executable is, or its process id where that is unknown.
[[nodiscard]] QString locationText(const ProcessRecord& record);

/// "PID: 4242"
[[nodiscard]] QString pidText(const ProcessRecord& record);

/// "PID: 4242", and what tells the application apart where others have its name.
[[nodiscard]] QString identityText(const ProcessRecord& record);

/// What the user is asked before an application is ended.
[[nodiscard]] QString killQuestion(const ProcessRecord& record);

/// `text` cut in its middle to as many lines of `width` points as it may have, broken anywhere.
[[nodiscard]] QString middleElidedText(const QString& text, const QFont& font, double width,
                                       int lines);

/// What the characters [from, to) of `cut` stand for, `cut` being `text` or a middleElidedText of
/// it: what was left out is part of it when the mark in its place is.
[[nodiscard]] QString uncutPart(const QString& text, const QString& cut, int from, int to);

/// The texts of the list of applications for views. One a QML engine.
class ProcessText : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  Q_INVOKABLE [[nodiscard]] QString historyDuration(int points) const {
    return historyDurationText(points);
  }
  Q_INVOKABLE [[nodiscard]] QList<QString> gridLabels(double peak, double minimum) const {
    return historyGridLabels(peak, minimum);
  }
  Q_INVOKABLE [[nodiscard]] QString location(const orvane::ProcessRecord& record) const {
    return locationText(record);
  }
  Q_INVOKABLE [[nodiscard]] QString pid(const orvane::ProcessRecord& record) const {
    return pidText(record);
  }
  Q_INVOKABLE [[nodiscard]] QString identity(const orvane::ProcessRecord& record) const {
    return identityText(record);
  }
  Q_INVOKABLE [[nodiscard]] QString killQuestion(const orvane::ProcessRecord& record) const {
    return orvane::killQuestion(record);
  }
  Q_INVOKABLE [[nodiscard]] QString middleElided(const QString& text, const QFont& font,
                                                 double width, int lines) const {
    return middleElidedText(text, font, width, lines);
  }
  /// Puts an uncutPart on the clipboard, or into the selection that a middle click pastes where
  /// the desktop has one. Nothing for an empty part.
  Q_INVOKABLE void copyPart(const QString& text, const QString& cut, int from, int to,
                            bool forMiddleClick) const;
  /// "1.5 MB" of `bytes`
  Q_INVOKABLE [[nodiscard]] QString megabytes(double bytes, int decimals) const;
};

}  // namespace orvane
