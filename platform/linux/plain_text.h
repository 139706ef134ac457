#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace orvane {

/// The text of a piece of HTML, for showing as plain text.
///
/// Tags, comments, scripts and styles are left out, paragraphs and list entries begin lines of
/// their own, entities are decoded, and characters that could disguise the text (controls,
/// changes of direction) are dropped. Text without any tag keeps its own line breaks. At most
/// `maximumLength` UTF-16 units come back, the last one an ellipsis where the text was cut. Takes
/// time linear in the input, whatever it holds.
[[nodiscard]] QString plainText(QStringView html, qsizetype maximumLength);

}  // namespace orvane
