#include <gtest/gtest.h>

#include <QBuffer>
#include <QDataStream>
#include <QImage>
#include <QUrl>

#include "platform/linux/files/regular_file.h"
#include "tests/unit/test_files.h"
#include "ui/icons/icon_decoder.h"
#include "ui/icons/icon_provider.h"

namespace orvane {
namespace {

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
  QImage request(const std::string& path, QSize size) {
    const auto id = QUrl::toPercentEncoding(QString::fromStdString(path));
    QSize told;
    QImage image = provider_.requestImage(QString::fromLatin1(id), &told, size);
    EXPECT_EQ(told, image.size());
    return image;
  }

  TestDirectory folder_;
  IconProvider provider_{readRegularFile};
};

TEST_F(Icons, FillTheirPlaceWhateverTheirShapeAndFormat) {
  const QByteArray png = encoded({64, 20}, red);
  const std::pair<const char*, QByteArray> files[] = {
      {"wide.png", png},
      {"small.png", encoded({3, 3}, red)},
      {"largest.png", encoded({4096, 4096}, red)},
      {"misnamed.svg", encoded({9, 9}, red, "BMP")},
      {"embedded.svg", embedding("data:image/png;base64," + png.toBase64())},
      {"vast.svg",
       "<svg xmlns='http://www.w3.org/2000/svg' width='90000' height='90000'>"
       "<rect width='90000' height='90000' fill='#ff0000'/></svg>"}};
  for (const auto& [name, bytes] : files) {
    const QImage icon = request(folder_.write(name, bytes.toStdString()), {36, 40});
    ASSERT_EQ(icon.size(), QSize(36, 40)) << name;
    for (const QPoint at : {QPoint(0, 0), QPoint(18, 20), QPoint(35, 39)}) {
      EXPECT_EQ(icon.pixel(at), red) << name;
    }
  }
  // Crisp at any size: the line of one point is eight whole pixels.
  const auto line =
      drawing("<rect x='10' width='1' height='10' fill='#ff0000' style='stroke-dasharray:none'/>");
  const QImage icon = decodeIcon(line, {240, 80});
  for (const auto& [x, color] : {std::pair(79, blue), {80, red}, {87, red}, {88, blue}})
    EXPECT_EQ(icon.pixel(x, 40), color) << x;
}

TEST_F(Icons, OfSeveralSizesTheNextLargerIsTaken) {
  const QByteArray file = severalPictures({{16, red}, {48, blue}, {128, red}});
  for (const auto& [side, color] : {std::pair(36, blue), {48, blue}, {12, red}, {400, red}}) {
    EXPECT_EQ(decodeIcon(file, {side, side}).pixel(5, 5), color) << side;
  }
}

TEST_F(Icons, ThatCannotBeShownAreNoPictureAtOnceAndPrintNothing) {
  const std::string pipe = makePipe(folder_.path("pipe.png"));
  const QByteArray nested = embedding(QByteArray::fromStdString(pipe));
  const QByteArray png = encoded({2, 2}, red);
  // In grey a quarter of what any picture may take.
  const QByteArray large = encoded({4097, 4096}, red, "PNG", QImage::Format_Grayscale8);
  std::vector<std::string> paths = {pipe, folder_.path(), folder_.path("missing"), "/dev/zero"};
  const std::pair<const char*, QByteArray> files[] = {
      {"empty.png", ""},
      {"text.png", "no picture"},
      {"cut.png", encoded({64, 64}, red).chopped(15)},
      {"head.png", encoded({64, 64}, red).left(20)},
      {"cut.svg", drawing("").chopped(4)},
      {"pipe.svg", nested},
      {"plain-href.svg", drawing("<image width='9' height='9' href='/dev/zero'/>")},
      {"nested.svg", embedding("data:image/svg+xml;base64," + nested.toBase64())},
      {"large.png", large},
      {"embedded-large.svg", embedding("data:image/png;base64," + large.toBase64())},
      {"vast.xpm", "/* XPM */\nstatic char *x[] = {\n\"30000 30000 1 1\",\n\"a c red\",\n"},
      {"dashes.svg", drawing("<path d='M0 0H1e9' stroke='red' stroke-dasharray='.001'/>")},
      {"escaped.svg", drawing("<path d='M0 0H1e9' style='stroke:red;stroke-d\\61sharray:.001'/>")},
      {"sheet.svg", drawing("<style>path{stroke:red;stroke-dasharray:.001}</style>"
                            "<path d='M0 0H1e9'/>")},
      {"heavy.png", png + QByteArray((4 << 20) + 1 - png.size(), '\0')}};
  for (const auto& [name, bytes] : files) paths.push_back(folder_.write(name, bytes.toStdString()));
  testing::internal::CaptureStderr();
  for (const auto& path : paths) {
    EXPECT_TRUE(endsDespite(pipe, [&] {
      const QImage icon = request(path, {36, 36});
      EXPECT_EQ(icon.size(), QSize(1, 1)) << path;
      EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0) << path;
    })) << path;
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
  for (const auto& name : {pipe, folder_.path(), folder_.path("x"), std::string(), outside}) {
    EXPECT_TRUE(IconProvider::source(name).isEmpty()) << name;
  }
}

}  // namespace
}  // namespace orvane
