#include "platform/linux/desktop/linux_login_item.h"

#include <QtCore/QByteArray>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSaveFile>
#include <QtCore/QStandardPaths>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/linux/files/regular_file.h"

namespace orvane {
namespace {

/// `argument` as one quoted argument of an Exec line.
std::string quotedArgument(const std::string& argument) {
  std::string quoted = "\"";
  for (const char character : argument) {
    if (std::string_view("\"`$\\").find(character) != std::string_view::npos) quoted += '\\';
    if (character == '%') quoted += '%';
    quoted += character;
  }
  return quoted + '"';
}

/// `value` as the value of a key: the file format has escapes of its own.
std::string escapedValue(const std::string& value) {
  return QByteArray::fromStdString(value)
      .replace("\\", "\\\\")
      .replace("\n", "\\n")
      .replace("\r", "\\r")
      .replace("\t", "\\t")
      .toStdString();
}

QString entryPath(const std::string& directory) {
  return QString::fromStdString(directory) + QStringLiteral("/orvane.desktop");
}

}  // namespace

std::string autostartEntry(const std::string& program) {
  return "[Desktop Entry]\n"
         "Type=Application\n"
         "Name=Orvane\n"
         "Comment=Memory usage in the panel\n"
         "Icon=orvane\n"
         "Terminal=false\n"
         "TryExec=" +
         escapedValue(program) + "\nExec=" + escapedValue(quotedArgument(program)) + "\n";
}

LinuxLoginItem::LinuxLoginItem(std::string program, std::string directory)
    : program_(std::move(program)), directory_(std::move(directory)) {
  // What a QSaveFile that was killed leaves: the beginning of an entry beside the entry's place.
  const QDir folder(QString::fromStdString(directory_));
  for (const QString& name :
       folder.entryList({QStringLiteral("orvane.desktop.??????")}, QDir::Files)) {
    const auto content = readRegularFile(directory_ + '/' + name.toStdString(), 65536);
    if (content && autostartEntry(program_).starts_with(*content))
      QFile::remove(folder.filePath(name));
  }
}

std::string LinuxLoginItem::defaultDirectory() {
  return (QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
          QStringLiteral("/autostart"))
      .toStdString();
}

LoginItem::Error LinuxLoginItem::registerItem() {
  std::error_code error;
  std::filesystem::create_directories(directory_, error);
  if (error) return error.message();
  QSaveFile file(entryPath(directory_));
  if (file.open(QIODevice::WriteOnly)) {
    file.write(QByteArray::fromStdString(autostartEntry(program_)));
    if (file.commit()) return std::nullopt;
  }
  return file.errorString().toStdString();
}

LoginItem::Error LinuxLoginItem::unregisterItem() {
  QFile file(entryPath(directory_));
  if (file.remove()) return std::nullopt;
  return file.errorString().toStdString();
}

}  // namespace orvane
