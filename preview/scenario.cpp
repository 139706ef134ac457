#include "preview/scenario.h"

namespace orvane::preview {

std::vector<Scenario> scenarios() {
  std::vector<Scenario> all;
  const auto add = [&all](const std::vector<Scenario>& some) {
    all.insert(all.end(), some.begin(), some.end());
  };
  add(popoverScenarios());
  add(mainWindowScenarios());
  add(processScenarios());
  add(dialogScenarios());
  add(panelScenarios());
  return all;
}

}  // namespace orvane::preview
