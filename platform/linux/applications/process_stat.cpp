#include "platform/linux/applications/process_stat.h"

#include <charconv>
#include <limits>

namespace orvane {
namespace {

constexpr std::uint64_t kernelThreadFlag = 0x00200000;
constexpr std::uint64_t bytesPerKibibyte = 1024;

/// Takes numbers off the front of a text. After the first failure every number is 0.
class NumberReader {
 public:
  explicit NumberReader(std::string_view text) : text_(text) {}

  template <typename Number>
  Number next() {
    Number number = 0;
    const std::size_t start = text_.find_first_not_of(" \n");
    if (start == std::string_view::npos) {
      failed_ = true;
      return 0;
    }
    text_.remove_prefix(start);
    const auto [end, error] = std::from_chars(text_.data(), text_.data() + text_.size(), number);
    failed_ = failed_ || error != std::errc{};
    text_.remove_prefix(static_cast<std::size_t>(end - text_.data()));
    return failed_ ? 0 : number;
  }

  void skip(int count) {
    for (; count > 0; --count) {
      const std::size_t start = text_.find_first_not_of(" \n");
      const std::size_t end = start == std::string_view::npos ? start : text_.find(' ', start);
      if (end == std::string_view::npos) failed_ = true;
      text_.remove_prefix(end == std::string_view::npos ? text_.size() : end);
    }
  }

  [[nodiscard]] bool failed() const { return failed_; }

 private:
  std::string_view text_;
  bool failed_ = false;
};

}  // namespace

bool ProcessStat::isKernelThread() const {
  return (flags & kernelThreadFlag) != 0;
}

std::optional<ProcessStat> parseProcessStat(std::string_view text) {
  // The command may hold anything, brackets and spaces included: only the last bracket ends it.
  const std::size_t open = text.find(" (");
  const std::size_t close = text.rfind(") ");
  if (open == std::string_view::npos || close == std::string_view::npos || close < open + 2 ||
      close + 2 >= text.size()) {
    return {};
  }
  ProcessStat stat;
  NumberReader head(text.substr(0, open));
  stat.pid = head.next<std::int32_t>();
  stat.command = text.substr(open + 2, close - open - 2);
  stat.state = text[close + 2];
  NumberReader rest(text.substr(close + 3));
  stat.parent = rest.next<std::int32_t>();
  stat.processGroup = rest.next<std::int32_t>();
  stat.session = rest.next<std::int32_t>();
  rest.skip(2);  // terminal and its foreground group
  stat.flags = rest.next<std::uint64_t>();
  rest.skip(10);  // faults, times, priorities
  stat.threads = rest.next<int>();
  rest.skip(1);
  stat.startTime = rest.next<std::uint64_t>();
  stat.virtualSize = rest.next<std::uint64_t>();
  rest.skip(4);  // resident size and its limit, bounds of the code
  stat.startStack = rest.next<std::uint64_t>();
  if (head.failed() || rest.failed() || stat.pid <= 0) return {};
  return stat;
}

std::optional<ProcessPages> parseProcessPages(std::string_view text) {
  NumberReader reader(text);
  ProcessPages pages;
  pages.size = reader.next<std::uint64_t>();
  pages.resident = reader.next<std::uint64_t>();
  pages.shared = reader.next<std::uint64_t>();
  pages.text = reader.next<std::uint64_t>();
  if (reader.failed()) return {};
  return pages;
}

std::optional<std::uint64_t> parseProportionalSize(std::string_view text) {
  constexpr std::string_view key = "\nPss:";
  const std::size_t line = text.find(key);
  if (line == std::string_view::npos) return {};
  NumberReader reader(text.substr(line + key.size()));
  const auto kibibytes = reader.next<std::uint64_t>();
  if (reader.failed() || kibibytes > std::numeric_limits<std::uint64_t>::max() / bytesPerKibibyte) {
    return {};
  }
  return kibibytes * bytesPerKibibyte;
}

}  // namespace orvane
