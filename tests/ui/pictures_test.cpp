#include <gtest/gtest.h>

#include <QBuffer>
#include <QDataStream>
#include <QImage>
#include <QQuickWindow>
#include <QTest>
#include <QUrl>
#include <limits>
#include <memory>

#include "tests/ui/view_case.h"
#include "tests/unit/test_support.h"
#include "ui/icons/icon_provider.h"
#include "ui/painted/gradient_arc.h"
#include "ui/painted/history_chart.h"
#include "ui/painted/rectangle_shadow.h"
#include "ui/painted/share_bar.h"
#include "ui/painted/smooth_rectangle.h"

namespace orvane {
namespace {

TEST(ChartPoints, LieEvenlyBetweenTheEdges) {
  const double notANumber = std::numeric_limits<double>::quiet_NaN();
  const struct {
    QList<double> values;
    double minimum, maximum;
    QList<QPointF> points;
  } cases[] = {{{}, 0, 100, {}},
               {{40}, 0, 100, {{0, 60}}},
               {{0, 50, 25}, 0, 100, {{0, 100}, {165, 50}, {330, 75}}},
               {{100, 200}, 100, 200, {{0, 100}, {330, 0}}},
               {{70, 70}, 70, 70, {{0, 50}, {330, 50}}},
               {{notANumber, 50}, 0, 100, {{0, 100}, {330, 50}}}};
  for (const auto& c : cases)
    EXPECT_EQ(chartPoints(c.values, c.minimum, c.maximum, {330, 100}), c.points);
  EXPECT_DOUBLE_EQ(chartPoints(QList<double>(60, 50.0), 0, 100, {330, 100}).back().x(), 330);
}

class PaintedTest : public testing::Test {
 protected:
  PaintedTest() {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    window_ = std::make_unique<QQuickWindow>();
    window_->setColor(Qt::white);
    window_->resize(80, 80);
  }
  void add(QQuickItem& item, QRectF place) {
    item.setParentItem(window_->contentItem());
    item.setPosition(place.topLeft());
    item.setSize(place.size());
  }
  static void set(QQuickItem& item, std::initializer_list<std::pair<const char*, QVariant>> to) {
    for (const auto& [name, value] : to) EXPECT_TRUE(item.setProperty(name, value)) << name;
  }
  QImage picture() {
    window_->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    return window_->grabWindow();
  }

  std::unique_ptr<QQuickWindow> window_;
};

TEST_F(PaintedTest, ArcRunsClockwiseAndIsPaintedOnlyWhenAnInputChanges) {
  GradientArc arc;
  const auto red = QVariant::fromValue(QList<QColor>{Qt::red});
  set(arc, {{"colors", red}, {"lineWidth", 6}, {"to", 0.25}, {"startRotation", -90}});
  add(arc, {15, 15, 50, 50});
  const QImage image = picture();
  EXPECT_EQ(image.pixelColor(57, 22), QColor(Qt::red)) << "top right quarter";
  EXPECT_EQ(image.pixelColor(42, 13), QColor(Qt::red)) << "outer half of the line";
  EXPECT_EQ(image.pixelColor(42, 17), QColor(Qt::red)) << "inner half of the line";
  EXPECT_EQ(image.pixelColor(22, 22), QColor(Qt::white)) << "top left quarter";
  EXPECT_EQ(image.pixelColor(57, 57), QColor(Qt::white)) << "bottom right quarter";
  arc.setRotation(90);
  arc.setX(20);
  set(arc, {{"colors", red}});
  (void)picture();
  EXPECT_EQ(arc.paintCount(), 1) << "turned, moved and set to what it was";
  arc.setTo(0);
  arc.setRotation(0);
  EXPECT_EQ(picture().pixelColor(62, 22), QColor(Qt::white)) << "nothing to draw";
}

TEST_F(PaintedTest, AShadowIsSoftAroundItsRectangleAndAbsentInside) {
  RectangleShadow shadow;
  set(shadow, {{"radius", 12}, {"blurRadius", 8}, {"color", QColor(Qt::black)}});
  add(shadow, {20, 20, 40, 40});
  const QImage image = picture();
  EXPECT_EQ(image.pixelColor(40, 40), QColor(Qt::white)) << "cut out";
  EXPECT_LT(image.pixelColor(18, 40).red(), 180);
  EXPECT_GT(image.pixelColor(12, 40).red(), image.pixelColor(16, 40).red());
  EXPECT_LT(image.pixelColor(12, 40).red(), 255) << "cut off";
  EXPECT_LT(image.pixelColor(21, 21).red(), 250) << "the corner is round, its shadow seen";
}

TEST_F(PaintedTest, StraightEdgesLieOnDevicePixels) {
  SmoothRectangle card;
  ShareBar bar;
  set(card, {{"radius", 2}, {"color", QColor(Qt::red)}});
  set(bar, {{"share", 0.5}, {"fillColor", QColor(Qt::red)}, {"trackColor", QColor(Qt::red)}});
  for (PaintedItem* item : std::initializer_list<PaintedItem*>{&card, &bar}) {
    add(*item, {10.4, 10.4, 40.3, 6.2});
    const QImage image = picture();
    QList<QColor> column;
    for (int y = 0; y < image.height(); ++y) {
      const QColor color = image.pixelColor(24, y);
      if (!column.contains(color)) column << color;
    }
    EXPECT_EQ(column, QList<QColor>({Qt::white, Qt::red})) << item->metaObject()->className();
    item->setParentItem(nullptr);
  }
}

constexpr QRgb red = 0xFFFF0000;
constexpr QRgb blue = 0xFF0000FF;

QByteArray encoded(QSize size, QRgb color, const char* format = "PNG",
                   QImage::Format pixels = QImage::Format_RGB32) {
  QImage image(size, pixels);
  image.fill(color);
  QBuffer buffer;
  image.save(&buffer, format);
  return buffer.data();
}

/// A drawing of 30 x 10 with `content` before a blue ground.
QByteArray drawing(const QByteArray& content) {
  return "<?xml version='1.0'?><svg xmlns='http://www.w3.org/2000/svg' "
         "xmlns:xlink='http://www.w3.org/1999/xlink' width='30' height='10' viewBox='0 0 30 10'>"
         "<rect width='30' height='10' fill='#0000ff'/>" +
         content + "</svg>";
}

QByteArray embedding(const QByteArray& address) {
  return drawing("<image width='30' height='10' xlink:href='" + address + "'/>");
}

/// A file of several square pictures, as other desktops have them.
QByteArray severalPictures(const QList<std::pair<int, QRgb>>& pictures) {
  QByteArray file;
  QByteArray contents;
  QDataStream stream(&file, QIODevice::WriteOnly);
  stream.setByteOrder(QDataStream::LittleEndian);
  stream << quint16{0} << quint16{1} << quint16(pictures.size());
  for (const auto& [side, color] : pictures) {
    const QByteArray picture = encoded({side, side}, color);
    stream << quint8(side) << quint8(side) << quint16{0} << quint16{1} << quint16{32}
           << quint32(picture.size()) << quint32(6 + 16 * pictures.size() + contents.size());
    contents += picture;
  }
  return file + contents;
}

class Icons : public testing::Test {
 protected:
  QImage request(const std::string& icon, QSize size) {
    const auto id = QUrl::toPercentEncoding(QString::fromStdString(icon)) + "/test";
    QSize told;
    QImage image = provider_.requestImage(QString::fromLatin1(id), &told, size);
    EXPECT_EQ(told, image.size());
    return image;
  }

  void writeTheme() const {
    folder_.write("icons/test/index.theme",
                  "[Icon Theme]\nName=Test\nDirectories=48\n[48]\nSize=48");
    folder_.write("icons/test/48/other.png", "");
  }

  TestDirectory folder_;
  IconProvider provider_{[this](IconRequest request) {
    request.searchPaths = {QString::fromStdString(folder_.path("icons"))};
    return drawIconApart(request);
  }};
};

TEST_F(Icons, FillTheirPlaceWhateverTheirShapeAndFormat) {
  const QByteArray png = encoded({64, 20}, red);
  const std::pair<const char*, QByteArray> files[] = {
      {"wide.png", png},
      {"small.png", encoded({3, 3}, red)},
      {"largest.png", encoded({4096, 4096}, red)},
      {"icons/test/48/themed.png", encoded({5, 5}, red)},
      {"misnamed.svg", encoded({9, 9}, red, "BMP")},
      {"embedded.svg", embedding("data:image/png;base64," + png.toBase64())},
      {"vast.svg",
       "<svg xmlns='http://www.w3.org/2000/svg' width='90000' height='90000'>"
       "<rect width='90000' height='90000' fill='#ff0000'/></svg>"}};
  writeTheme();
  for (const auto& [name, bytes] : files) {
    const std::string path = folder_.write(name, bytes.toStdString());
    const QImage icon = request(path.ends_with("themed.png") ? "themed" : path, {36, 40});
    ASSERT_EQ(icon.size(), QSize(36, 40)) << name;
    for (const QPoint at : {QPoint(0, 0), QPoint(18, 20), QPoint(35, 39)})
      EXPECT_EQ(icon.pixel(at), red) << name;
  }
  // Crisp at any size: the line of one point is eight whole pixels.
  const auto line =
      drawing("<rect x='10' width='1' height='10' fill='#ff0000' style='stroke-dasharray:none'/>");
  const QImage icon = request(folder_.write("line.svg", line.toStdString()), {240, 80});
  for (const auto& [x, color] : {std::pair(79, blue), {80, red}, {87, red}, {88, blue}})
    EXPECT_EQ(icon.pixel(x, 40), color) << x;
}

TEST_F(Icons, OfSeveralSizesTheNextLargerIsTaken) {
  const QByteArray pictures = severalPictures({{16, red}, {48, blue}, {128, red}});
  const std::string file = folder_.write("several.ico", pictures.toStdString());
  for (const auto& [side, color] : {std::pair(36, blue), {48, blue}, {12, red}, {400, red}})
    EXPECT_EQ(request(file, {side, side}).pixel(5, 5), color) << side;
}

TEST_F(Icons, ThatCannotBeShownAreNoPictureAndPrintNothing) {
  writeTheme();
  const std::string pipe = makePipe(folder_.path("icons/test/48/themed.png"));
  const QByteArray png = encoded({2, 2}, red);
  std::vector<std::string> icons = {pipe,        "themed", folder_.path(), folder_.path("missing"),
                                    "/dev/zero", "unknown"};
  const std::pair<const char*, QByteArray> files[] = {
      {"empty.png", ""},
      {"text.png", "no picture"},
      {"head.png", encoded({64, 64}, red).left(20)},
      {"cut.svg", drawing("").chopped(4)},
      {"vast.xpm", "/* XPM */\nstatic char *x[] = {\n\"30000 30000 1 1\",\n\"a c red\",\n"},
      {"endless.svg", drawing("<g id='a'>" + QByteArray("<path d='M0 0L9 9'/>").repeated(1000) +
                              "</g>" + QByteArray("<use xlink:href='#a'/>").repeated(9000))},
      {"heavy.png", png + QByteArray((4 << 20) + 1 - png.size(), '\0')}};
  for (const auto& [name, bytes] : files) icons.push_back(folder_.write(name, bytes.toStdString()));
  testing::internal::CaptureStderr();
  for (const auto& icon : icons) {
    EXPECT_TRUE(endsDespite(pipe, [&] {
      const QImage image = request(icon, {36, 36});
      EXPECT_EQ(image.size(), QSize(1, 1)) << icon;
      EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << icon;
    })) << icon;
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Icons, HaveAnAddressOnlyWhereThereIsAFile) {
  const std::string good = folder_.write("a name%20.png", "");
  EXPECT_EQ(
      IconProvider::source(good).toStdString(),
      "image://application/" + QUrl::toPercentEncoding(QString::fromStdString(good)).toStdString());
  const std::string pipe = makePipe(folder_.path("pipe.png"));
  const std::string outside = "../../../../../../../.." + folder_.path("a name%20");
  for (const auto& name : {pipe, folder_.path(), folder_.path("x"), std::string(), outside})
    EXPECT_TRUE(IconProvider::source(name).isEmpty()) << name;
}

}  // namespace
}  // namespace orvane
