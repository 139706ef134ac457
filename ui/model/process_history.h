#pragma once

#include <QtQml/qqmlregistration.h>
#include <QList>
#include <QObject>

namespace orvane {

/// The recent course of one application's memory as a QML value, in MB.
struct ProcessHistory {
  Q_GADGET
  QML_VALUE_TYPE(processHistory)

  Q_PROPERTY(QList<double> values MEMBER values CONSTANT)  ///< oldest first
  Q_PROPERTY(double peak MEMBER peak CONSTANT)
  Q_PROPERTY(double minimum MEMBER minimum CONSTANT)
  Q_PROPERTY(double average MEMBER average CONSTANT)

 public:
  QList<double> values;
  double peak = 0;
  double minimum = 0;
  double average = 0;
};

}  // namespace orvane
