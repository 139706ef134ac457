#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/preferences.h"

namespace orvane::fakes {

/// Preferences in memory that also records the order of the writes, as "key=value".
class FakePreferences : public Preferences {
 public:
  [[nodiscard]] std::optional<std::string> text(std::string_view key) const override {
    return valueOf(texts, key);
  }
  void setText(std::string_view key, std::string_view value) override {
    texts.insert_or_assign(std::string(key), std::string(value));
    writes.push_back(std::string(key) + "=" + std::string(value));
  }
  [[nodiscard]] std::optional<bool> boolean(std::string_view key) const override {
    return valueOf(booleans, key);
  }
  void setBoolean(std::string_view key, bool value) override {
    booleans.insert_or_assign(std::string(key), value);
    writes.push_back(std::string(key) + (value ? "=true" : "=false"));
  }

  std::map<std::string, std::string, std::less<>> texts;
  std::map<std::string, bool, std::less<>> booleans;
  std::vector<std::string> writes;

 private:
  template <typename Map>
  static std::optional<typename Map::mapped_type> valueOf(const Map& map, std::string_view key) {
    const auto found = map.find(key);
    return found == map.end() ? std::nullopt : std::optional(found->second);
  }
};

}  // namespace orvane::fakes
