#include "platform/linux/desktop/linux_preferences.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLockFile>
#include <QtCore/QSettings>
#include <QtCore/QStandardPaths>
#include <map>
#include <utility>

namespace orvane {
namespace {

constexpr qint64 largestFile = 1 << 20;

QString keyText(std::string_view key) {
  return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

/// Reading a pipe or a device may never end.
bool isFileOrMissing(const QString& path) {
  const QFileInfo info(path);
  return info.isFile() || !info.exists();
}

}  // namespace

class LinuxPreferences::File {
 public:
  explicit File(const QString& path)
      : path_(path),
        isReadable_(isFileOrMissing(path) && QFileInfo(path).size() <= largestFile),
        settings_(isReadable_ ? path : QStringLiteral("/dev/null"), QSettings::IniFormat) {
    settings_.setAtomicSyncRequired(true);
    settings_.allKeys();  // QSettings parses the file, and finds its errors, at the first question
    isValid_ = isReadable_ && settings_.status() == QSettings::NoError && !hasNulBytes();
  }

  /// The text stored under `key`; none also for lists and other forms a hand may have written.
  [[nodiscard]] std::optional<QString> value(std::string_view key) const {
    const auto unsaved = unsaved_.find(keyText(key));
    if (unsaved != unsaved_.end()) return unsaved->second;
    const QVariant stored = settings_.value(keyText(key));
    if (stored.typeId() != QMetaType::QString) return std::nullopt;
    return stored.toString();
  }

  void setValue(std::string_view key, const QString& value) {
    unsaved_[keyText(key)] = value;
    // QSettings writes by itself, a moment later, what setValue has given it.
    if (!mayBeLocked() || (!isValid_ && !keepCopy())) return;
    isValid_ = true;
    for (const auto& [name, text] : std::exchange(unsaved_, {})) settings_.setValue(name, text);
    settings_.sync();
  }

 private:
  /// QSettings waits for its lock for ever. QLockFile itself waits for pipes in the place of its
  /// files.
  [[nodiscard]] bool mayBeLocked() const {
    constexpr int patienceMilliseconds = 100;
    const QString path = path_ + QStringLiteral(".lock");
    if (!isFileOrMissing(path) || !isFileOrMissing(path + QStringLiteral(".rmlock"))) return false;
    QDir().mkpath(QFileInfo(path).path());
    return QLockFile(path).tryLock(patienceMilliseconds);
  }

  [[nodiscard]] bool hasNulBytes() const {
    QFile file(path_);
    return file.open(QIODevice::ReadOnly) && file.readAll().contains('\0');
  }

  [[nodiscard]] bool keepCopy() const {
    if (!isReadable_) return false;
    const QString copy = path_ + QStringLiteral(".corrupt");
    QFile::remove(copy);
    return QFile::copy(path_, copy);
  }

  QString path_;
  bool isReadable_;  ///< else `settings_` stays empty
  QSettings settings_;
  std::map<QString, QString> unsaved_;  ///< changes that must not reach the file yet
  bool isValid_ = true;
};

LinuxPreferences::LinuxPreferences(const std::string& path)
    : file_(std::make_unique<File>(QString::fromStdString(path))) {}

LinuxPreferences::~LinuxPreferences() = default;

std::string LinuxPreferences::defaultPath() {
  return (QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
          QStringLiteral("/orvane/orvane.conf"))
      .toStdString();
}

std::optional<std::string> LinuxPreferences::text(std::string_view key) const {
  const auto value = file_->value(key);
  return value ? std::optional(value->toStdString()) : std::nullopt;
}

void LinuxPreferences::setText(std::string_view key, std::string_view value) {
  file_->setValue(key, keyText(value));
}

std::optional<bool> LinuxPreferences::boolean(std::string_view key) const {
  const auto value = file_->value(key);
  if (value == QStringLiteral("true")) return true;
  if (value == QStringLiteral("false")) return false;
  return std::nullopt;
}

void LinuxPreferences::setBoolean(std::string_view key, bool value) {
  file_->setValue(key, value ? QStringLiteral("true") : QStringLiteral("false"));
}

}  // namespace orvane
