#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>

namespace orvane {

/// The bytes of a file in tests/data/appcasts; empty when there is none of that name.
inline QByteArray appcastFixture(const QString& name) {
  QFile file(QStringLiteral(ORVANE_TEST_DATA "/appcasts/") + name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace orvane
