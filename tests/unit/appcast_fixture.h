#pragma once

#include <QtCore/QByteArray>

#include "tests/unit/test_files.h"

namespace orvane {

/// The bytes of a file in tests/data/appcasts; empty when there is none of that name.
inline QByteArray appcastFixture(const std::string& name) {
  return QByteArray::fromStdString(testData("appcasts/" + name));
}

}  // namespace orvane
