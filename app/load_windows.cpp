#include "app/load_windows.h"

#include <QtCore/QLibrary>
#include <QtCore/QLoggingCategory>

#include "app/product_settings.h"
#include "platform/linux/bus/session_bus.h"
#include "platform/linux/runtime/start_conditions.h"

namespace orvane {

LoadedWindows loadWindows(const std::vector<std::string>& folders, const WindowSettings& settings,
                          Shell& shell, const std::shared_ptr<MemoryManager>& manager) {
  LoadedWindows made;
  if (!canStartThread()) {
    qWarning("No windows: the system gives no thread");
    return made;
  }
  keepQtOffSilentBus();
  QString problem;
  for (const std::string& folder : folders) {
    QLibrary module(QString::fromStdString(folder + '/' + windowsModuleFile));
    // Qt keeps the module's types registered for good.
    module.setLoadHints(QLibrary::PreventUnloadHint);
    if (const auto make = reinterpret_cast<MakeWindows>(module.resolve(makeWindowsName))) {
      WindowSettings found = settings;
      found.moduleFolder = folder;
      make(made, found, shell, manager);
      return made;
    }
    problem = module.errorString();
  }
  qWarning("No windows: %s", qUtf8Printable(problem));
  return made;
}

}  // namespace orvane
