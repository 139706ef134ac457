// Has a program trust the certificate of the tests' update feed, and no other.
#include <QtCore/QCoreApplication>
#include <QtCore/QString>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>

namespace {

void trustFeed() {
  auto ssl = QSslConfiguration::defaultConfiguration();
  ssl.setCaCertificates(QSslCertificate::fromPath(QStringLiteral(ORVANE_FEED_CERTIFICATE)));
  QSslConfiguration::setDefaultConfiguration(ssl);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(trustFeed)
