#include "platform/linux/desktop/linux_desktop_opener.h"

#include <QtCore/QStandardPaths>
#include <QtCore/QStringList>
#include <QtCore/QUrl>
#include <QtDBus/QDBusMessage>

#include <filesystem>
#include <system_error>

#include "platform/linux/bus/session_bus.h"

namespace orvane {

namespace {

/// A file manager has to start for its first answer.
constexpr int answerMilliseconds = 10'000;

QDBusMessage showItemsCall(const std::string& path) {
  QDBusMessage call = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.FileManager1"),
      QStringLiteral("/org/freedesktop/FileManager1"),
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
  call << QStringList(QString::fromLatin1(fileAddress(path))) << QString();
  return call;
}

}  // namespace

QByteArray fileAddress(const std::string& path) {
  return "file://" + QByteArray::fromStdString(path).toPercentEncoding("/");
}

LinuxDesktopOpener::LinuxDesktopOpener(SessionBus& bus)
    : bus_(bus), inherited_(InheritedLimits::current()) {}

void LinuxDesktopOpener::openUrl(const std::string& url) {
  const QUrl parsed(QString::fromStdString(url), QUrl::StrictMode);
  // Without a scheme it could be read as an option of the command.
  if (!parsed.isValid() || parsed.scheme().isEmpty()) return;
  launchOpener(QByteArray::fromStdString(url));
}

void LinuxDesktopOpener::revealFile(const std::string& path) {
  std::error_code error;
  if (!path.starts_with('/')) return;
  if (!bus_.isConnected() || !std::filesystem::exists(path, error)) return openFolderOf(path);
  bus_.call(
      showItemsCall(path), &answers_,
      [this, path](const QDBusPendingCall& answer) {
        if (answer.isError()) openFolderOf(path);
      },
      answerMilliseconds);
}

void LinuxDesktopOpener::openFolderOf(const std::string& path) const {
  const std::string folder = std::filesystem::path(path).parent_path();
  std::error_code error;
  if (std::filesystem::is_directory(folder, error)) launchOpener(fileAddress(folder));
}

// QDesktopServices would do the same, but wait for the bus in a sandbox.
void LinuxDesktopOpener::launchOpener(const QByteArray& address) const {
  const QString xdgOpen = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
  const QString gio = QStandardPaths::findExecutable(QStringLiteral("gio"));
  const QString argument = QString::fromUtf8(address);
  if (!xdgOpen.isEmpty()) {
    launchDetached({xdgOpen, argument}, inherited_);
  } else if (!gio.isEmpty()) {
    launchDetached({gio, QStringLiteral("open"), argument}, inherited_);
  }
}

}  // namespace orvane
