#include "platform/linux/updates/http_answer.h"

#include <QtCore/QByteArrayView>

namespace orvane {

namespace {

constexpr QByteArrayView lineEnd("\r\n");
constexpr QByteArrayView headEnd("\r\n\r\n");

/// Takes the first line off `text`, with its end.
QByteArrayView takeLine(QByteArrayView& text) {
  const qsizetype found = text.indexOf(lineEnd);
  const QByteArrayView line = text.first(found < 0 ? text.size() : found);
  text = text.sliced(found < 0 ? text.size() : found + lineEnd.size());
  return line;
}

/// The value of a header, empty when there is none of that name.
QByteArray header(QByteArrayView head, QByteArrayView name) {
  while (!head.isEmpty()) {
    const QByteArrayView line = takeLine(head);
    const qsizetype colon = line.indexOf(':');
    if (colon >= 0 && line.first(colon).compare(name, Qt::CaseInsensitive) == 0) {
      return line.sliced(colon + 1).trimmed().toByteArray();
    }
  }
  return {};
}

/// False when the pieces make no sense.
bool readChunks(QByteArrayView rest, HttpAnswer& answer) {
  while (rest.contains(lineEnd)) {
    const QByteArrayView line = takeLine(rest);
    const qsizetype extension = line.indexOf(';');
    bool isNumber = false;
    const qint64 size =
        line.first(extension < 0 ? line.size() : extension).trimmed().toLongLong(&isNumber, 16);
    if (!isNumber || size < 0) return false;
    answer.isWhole = size == 0;
    if (answer.isWhole || rest.size() - lineEnd.size() < size) return true;
    answer.body += rest.first(size);
    rest = rest.sliced(size + lineEnd.size());
  }
  return true;
}

bool readBody(QByteArrayView head, QByteArrayView rest, HttpAnswer& answer) {
  if (!header(head, "Transfer-Encoding").isEmpty()) return readChunks(rest, answer);
  const QByteArray length = header(head, "Content-Length");
  answer.isOpenEnded = length.isEmpty();
  bool isNumber = true;
  const qint64 size = answer.isOpenEnded ? rest.size() : length.toLongLong(&isNumber);
  if (!isNumber || size < 0) return false;
  answer.isWhole = !answer.isOpenEnded && rest.size() >= size;
  answer.body = rest.first(qMin(rest.size(), size)).toByteArray();
  return true;
}

}  // namespace

std::optional<HttpAnswer> readHttpAnswer(const QByteArray& received) {
  for (QByteArrayView rest(received); rest.contains(headEnd);) {
    const qsizetype length = rest.indexOf(headEnd);
    QByteArrayView head = rest.first(length);
    rest = rest.sliced(length + headEnd.size());
    const QByteArrayView line = takeLine(head);
    HttpAnswer answer;
    if (line.startsWith("HTTP/1.")) answer.status = line.toByteArray().mid(9, 3).toInt();
    if (answer.status >= 100 && answer.status < 200) continue;  // the answer proper is to come
    answer.location = header(head, "Location");
    if (answer.status < 200 || !readBody(head, rest, answer)) return HttpAnswer{};
    return answer;
  }
  return {};
}

}  // namespace orvane
