#include <QImage>
#include <QPainter>
#include <QQuickPaintedItem>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "app/status_icon.h"
#include "preview/preview_stage.h"
#include "preview/scenario.h"

namespace orvane::preview {

namespace {

constexpr std::array<int, 4> sizes = {16, 22, 24, 32};
constexpr int cell = 40;
constexpr int columns = 9;

/// A panel of that look, and whether the item knows it.
struct Panel {
  QColor color;
  std::optional<ColorScheme> known;
};

/// The item's pictures on panels, as many device pixels as they have.
class PanelIcons : public QQuickPaintedItem {
 public:
  using QQuickPaintedItem::QQuickPaintedItem;

  void paint(QPainter* painter) override {
    int row = 0;
    for (const Panel& panel :
         {Panel{QColor(240, 240, 240), ColorScheme::light},
          Panel{QColor(49, 49, 49), ColorScheme::dark}, Panel{QColor(240, 240, 240), std::nullopt},
          Panel{QColor(49, 49, 49), std::nullopt}}) {
      for (const int size : sizes) paintRow(*painter, panel, size, row++);
    }
  }

 private:
  static void paintRow(QPainter& painter, const Panel& panel, int size, int row) {
    painter.fillRect(0, row * cell, columns * cell, cell, panel.color);
    const StatusIconPainter icons;
    std::vector<std::vector<IconPixmap>> pictures{icons.normal(panel.known),
                                                  icons.boosting(panel.known)};
    for (const int percent : {0, 7, 11, 38, 56, 89, 100})
      pictures.push_back(icons.percentage(percent, panel.known));
    int x = (cell - size) / 2;
    for (const auto& picture : pictures) {
      for (const auto& [width, height, pixels] : picture) {
        if (width != size) continue;
        const QImage image(reinterpret_cast<const uchar*>(pixels.data()), width, height,
                           QImage::Format_ARGB32);
        painter.drawImage(x, row * cell + (cell - size) / 2, image);
      }
      x += cell;
    }
  }
};

void panelIcons(PreviewStage& stage) {
  stage.showMainWindow();
  QQuickWindow& window = *stage.window();
  const QList<QQuickItem*> views = window.contentItem()->childItems();
  for (QQuickItem* view : views) view->setVisible(false);
  auto* icons = new PanelIcons(window.contentItem());  // owned by its parent
  icons->setSize({columns * cell, 16 * cell});
  window.setMinimumSize({});
  window.setMaximumSize({columns * cell, 16 * cell});
  window.resize(columns * cell, 16 * cell);
}

}  // namespace

std::vector<Scenario> panelScenarios() {
  return {{"panel-icons", "the item on light and dark panels, known and unknown, 16 to 32 pixels",
           panelIcons}};
}

}  // namespace orvane::preview
