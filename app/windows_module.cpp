// The one door into the module of the windows.
#include "app/windows_module.h"

#include <QtCore/QtGlobal>

#include "app/quick_windows.h"

extern "C" Q_DECL_EXPORT void makeOrvaneWindows(std::unique_ptr<orvane::WindowFactory>& windows,
                                                orvane::Appearance& appearance,
                                                const orvane::ProductFacts& facts) {
  windows = std::make_unique<orvane::QuickWindows>(appearance, facts);
}
