#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QFont>

#include "ui/painted/painted_item.h"

namespace orvane {

/// One line of text filled with a linear gradient. Its own size is the text's.
class GradientText : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
  Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY changed)
  Q_PROPERTY(QList<QColor> colors READ colors WRITE setColors NOTIFY changed)
  Q_PROPERTY(QPointF gradientStart READ gradientStart WRITE setGradientStart NOTIFY changed)
  Q_PROPERTY(QPointF gradientEnd READ gradientEnd WRITE setGradientEnd NOTIFY changed)

 public:
  [[nodiscard]] QString text() const { return text_; }
  [[nodiscard]] QFont font() const { return font_; }
  [[nodiscard]] QList<QColor> colors() const { return colors_; }
  [[nodiscard]] QPointF gradientStart() const { return gradientStart_; }
  [[nodiscard]] QPointF gradientEnd() const { return gradientEnd_; }

  void setText(const QString& value) { measureIf(assign(text_, value)); }
  void setFont(const QFont& value) { measureIf(assign(font_, value)); }
  void setColors(const QList<QColor>& value) { measureIf(assign(colors_, value)); }
  void setGradientStart(QPointF value) { measureIf(assign(gradientStart_, value)); }
  void setGradientEnd(QPointF value) { measureIf(assign(gradientEnd_, value)); }

 Q_SIGNALS:
  void changed();

 protected:
  void paint(QPainter& painter) const override;
  // Slanted and round glyphs reach a little beyond their advance.
  [[nodiscard]] double overhang() const override { return 2; }

 private:
  void measureIf(bool isNew);

  QString text_;
  QFont font_;
  QList<QColor> colors_;
  QPointF gradientStart_{0, 0};
  QPointF gradientEnd_{1, 1};
};

}  // namespace orvane
