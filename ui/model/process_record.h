#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

#include <memory>

#include "core/process_info.h"

namespace orvane {

/// One record of the list of applications as a QML value, unchanged by later lists. The default
/// one is no record: `valid` is false.
class ProcessRecord {
  Q_GADGET
  QML_VALUE_TYPE(processRecord)

  Q_PROPERTY(bool valid READ isValid CONSTANT)
  Q_PROPERTY(QString id READ id CONSTANT)
  Q_PROPERTY(QString name READ name CONSTANT)
  Q_PROPERTY(int pid READ pid CONSTANT)
  /// For Image; empty when there is no icon.
  Q_PROPERTY(QString iconSource READ iconSource CONSTANT)
  Q_PROPERTY(QString path READ path CONSTANT)                ///< of the executable, may be empty
  Q_PROPERTY(QString distinction READ distinction CONSTANT)  ///< empty when no other has its name
  Q_PROPERTY(int threadCount READ threadCount CONSTANT)      ///< 0 when unknown
  Q_PROPERTY(double memoryBytes READ memoryBytes CONSTANT)
  Q_PROPERTY(double privateBytes READ privateBytes CONSTANT)
  Q_PROPERTY(double virtualBytes READ virtualBytes CONSTANT)

 public:
  ProcessRecord() = default;
  explicit ProcessRecord(ProcessInfo info)
      : info_(std::make_shared<const ProcessInfo>(std::move(info))) {}

  /// The model's record; null when this is none.
  [[nodiscard]] const ProcessInfo* info() const { return info_.get(); }

  [[nodiscard]] bool isValid() const { return info_ != nullptr; }
  [[nodiscard]] QString id() const;
  [[nodiscard]] QString name() const;
  [[nodiscard]] int pid() const { return info_ ? info_->pid : 0; }
  [[nodiscard]] QString iconSource() const;
  [[nodiscard]] QString path() const;
  [[nodiscard]] QString distinction() const;
  [[nodiscard]] int threadCount() const { return info_ ? info_->threadCount : 0; }
  [[nodiscard]] double memoryBytes() const { return bytes(&ProcessInfo::memoryUsage); }
  [[nodiscard]] double privateBytes() const { return bytes(&ProcessInfo::privateMemory); }
  [[nodiscard]] double virtualBytes() const { return bytes(&ProcessInfo::virtualMemory); }

  bool operator==(const ProcessRecord& other) const {
    return isValid() == other.isValid() && (!isValid() || *info_ == *other.info_);
  }

 private:
  [[nodiscard]] double bytes(std::uint64_t ProcessInfo::*figure) const {
    return info_ ? static_cast<double>((*info_).*figure) : 0.0;
  }

  std::shared_ptr<const ProcessInfo> info_;
};

}  // namespace orvane
