#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusContext>

namespace orvane {

/// An object to register on the bus: its children are adaptors, which answer the calls and learn
/// from the context who called.
class BusExport : public QObject, public QDBusContext {
  Q_OBJECT
};

}  // namespace orvane
