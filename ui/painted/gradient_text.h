#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QFont>

#include "ui/painted/painted_item.h"

namespace orvane {

/// One line of text filled with a gradient from its top left to its bottom right. Its own size is
/// the text's; a text that is too wide is written smaller.
class GradientText : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QString text MEMBER text_ NOTIFY changed)
  Q_PROPERTY(QFont font MEMBER font_ NOTIFY changed)
  Q_PROPERTY(double maximumWidth MEMBER maximumWidth_ NOTIFY changed)  ///< points; 0 = any
  Q_PROPERTY(QList<QColor> colors MEMBER colors_ NOTIFY changed)

 protected:
  void paint(QPainter& painter) const override;
  void inputChanged() override;
  // Slanted and round glyphs reach a little beyond their advance.
  [[nodiscard]] double overhang() const override { return 2; }

 private:
  QString text_;
  QFont font_;
  double maximumWidth_ = 0;
  QFont fitting_;  ///< `font_`, small enough
  QList<QColor> colors_;
};

}  // namespace orvane
