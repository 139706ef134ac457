#include "platform/linux/status_item/status_notifier_adaptor.h"

#include <QtCore/QTimer>
#include <chrono>
#include <utility>

#include "platform/linux/bus/activation_token.h"

namespace orvane {

StatusNotifierAdaptor::StatusNotifierAdaptor(BusExport* exported, const QString& menuPath)
    : QDBusAbstractAdaptor(exported), exported_(*exported), menu_(menuPath) {
  registerStatusNotifierTypes();
}

QString StatusNotifierAdaptor::category() {
  return QStringLiteral("SystemServices");
}

QString StatusNotifierAdaptor::id() {
  return QStringLiteral("orvane");
}

QString StatusNotifierAdaptor::title() const {
  return QStringLiteral("Orvane") + label_;
}

QString StatusNotifierAdaptor::status() {
  return QStringLiteral("Active");
}

/// The widest label, so that the panel's other items stay where they are when it changes.
QString StatusNotifierAdaptor::labelGuide() {
  return QStringLiteral(" 100%");
}

void StatusNotifierAdaptor::setLabel(const QString& label) {
  if (label == label_) return;
  label_ = label;
  noteChange(&Changes::label);
}

void StatusNotifierAdaptor::setIcon(const std::vector<orvane::IconPixmap>& icon) {
  StatusNotifierPixmaps pixmaps = busPixmaps(icon);
  if (pixmaps == icon_) return;
  icon_ = std::move(pixmaps);
  noteChange(&Changes::icon);
}

void StatusNotifierAdaptor::setToolTip(const QString& title, const QString& text) {
  StatusNotifierToolTip toolTip{.iconName = {}, .icon = {}, .title = title, .text = text};
  if (toolTip == toolTip_) return;
  toolTip_ = std::move(toolTip);
  noteChange(&Changes::toolTip);
}

void StatusNotifierAdaptor::setHost(const PanelHost& host) {
  constexpr std::chrono::seconds timeToReadItem{2};
  host_ = host;
  if (!host_.awaitsOtherLabel) return;
  QTimer::singleShot(timeToReadItem, this, &StatusNotifierAdaptor::announceOtherLabel);
}

void StatusNotifierAdaptor::announceOtherLabel() {
  Q_EMIT XAyatanaNewLabel({}, labelGuide());
  Q_EMIT XAyatanaNewLabel(label_, labelGuide());
}

void StatusNotifierAdaptor::noteChange(bool Changes::*what) {
  if (!changes_) {
    changes_ = Changes{};
    QMetaObject::invokeMethod(this, &StatusNotifierAdaptor::announceChanges, Qt::QueuedConnection);
  }
  (*changes_).*what = true;
}

void StatusNotifierAdaptor::announceChanges() {
  const Changes changes = *std::exchange(changes_, std::nullopt);
  if (host_.rereadsAll) {
    Q_EMIT NewIcon();
    return;
  }
  if (changes.label) {
    Q_EMIT XAyatanaNewLabel(label_, labelGuide());
    Q_EMIT NewTitle();
  }
  if (changes.icon) Q_EMIT NewIcon();
  if (changes.toolTip) Q_EMIT NewToolTip();
}

void StatusNotifierAdaptor::setAction(std::function<void(ScreenPoint)> action) {
  action_ = std::move(action);
}

void StatusNotifierAdaptor::Activate(int x, int y) {
  exported_.runSoon([this, x, y] {
    if (action_) action_({.x = x, .y = y});
  });
}

// Panels report a middle click here: it does what a left click does.
void StatusNotifierAdaptor::SecondaryActivate(int x, int y) {
  Activate(x, y);
}

// Only panels that can't show the exported menu call this.
void StatusNotifierAdaptor::ContextMenu(int x, int y) {
  Activate(x, y);
}

void StatusNotifierAdaptor::Scroll(int /*delta*/, const QString& /*orientation*/) {}

void StatusNotifierAdaptor::ProvideXdgActivationToken(const QString& token) {
  keepActivationToken(token.toUtf8());
}

}  // namespace orvane
