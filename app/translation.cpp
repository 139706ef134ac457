#include "app/translation.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>

namespace orvane {

void loadTranslation() {
  const QStringList wanted = QLocale::system().uiLanguages();
  for (const QString& name : wanted) {
    const QString language = QLocale(name).name().section(QLatin1Char('_'), 0, 0);
    if (language == QLatin1String("en") || language == QLatin1String("C")) return;
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(QStringLiteral(":/i18n/orvane_") + language)) {
      QCoreApplication::installTranslator(translator);
      return;
    }
    delete translator;
  }
}

std::string translated(const char* english, const char* note) {
  return QCoreApplication::translate("Program", english, note).toStdString();
}

}  // namespace orvane
