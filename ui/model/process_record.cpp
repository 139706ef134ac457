#include "ui/model/process_record.h"

#include "ui/icons/icon_provider.h"

namespace orvane {

QString ProcessRecord::id() const {
  return info_ ? QString::fromStdString(info_->id.text()) : QString();
}

QString ProcessRecord::name() const {
  return info_ ? QString::fromStdString(info_->name) : QString();
}

QString ProcessRecord::iconSource() const {
  return info_ && info_->icon ? IconProvider::source(info_->icon->name) : QString();
}

QString ProcessRecord::path() const {
  // A path is bytes, not text: what isn't UTF-8 shows replacement characters.
  return info_ ? QString::fromUtf8(info_->processPath.c_str()) : QString();
}

QString ProcessRecord::distinction() const {
  return info_ ? QString::fromStdString(info_->distinction) : QString();
}

}  // namespace orvane
