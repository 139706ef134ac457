#include "core/texts.h"

namespace orvane {

std::string filled(const std::string& text, std::initializer_list<std::string> values) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t place = text[i] == '%' && i + 1 < text.size()
                                  ? static_cast<std::size_t>(text[i + 1] - '1')
                                  : values.size();
    if (place < values.size()) {
      result += values.begin()[place];
      ++i;
    } else {
      result += text[i];
    }
  }
  return result;
}

}  // namespace orvane
