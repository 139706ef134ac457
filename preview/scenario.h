#pragma once

#include <string_view>
#include <vector>

namespace orvane::preview {

class PreviewStage;

/// One situation to look at.
struct Scenario {
  std::string_view name;
  std::string_view description;
  void (*run)(PreviewStage&);    ///< sets the stage up and shows its window
  int settleMilliseconds = 100;  ///< until its animations have come to rest
};

/// Each subject's scenarios, in scenarios/.
[[nodiscard]] std::vector<Scenario> popoverScenarios();
[[nodiscard]] std::vector<Scenario> mainWindowScenarios();
[[nodiscard]] std::vector<Scenario> processScenarios();
[[nodiscard]] std::vector<Scenario> dialogScenarios();
[[nodiscard]] std::vector<Scenario> panelScenarios();

/// All of them.
[[nodiscard]] std::vector<Scenario> scenarios();

}  // namespace orvane::preview
