#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace orvane {

/// The picture in the bytes of an icon's file, stretched to `size`; null when there is none.
///
/// Any program may have written the file. A picture of more than 4096 x 4096 pixels isn't decoded,
/// and neither is a drawing (SVG) that refers to other files, is compressed, is larger than
/// 1 MiB, dashes its lines or embeds anything but such pictures. Threads: any.
[[nodiscard]] QImage decodeIcon(const QByteArray& bytes, QSize size);

}  // namespace orvane
