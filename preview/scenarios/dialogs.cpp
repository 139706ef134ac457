#include "preview/preview_stage.h"
#include "preview/scenario.h"

namespace orvane::preview {

namespace {

void showUpdate(PreviewStage& stage, const std::optional<UpdateResult>& result) {
  stage.windows().showUpdateCheck();
  if (result) stage.windows().showUpdateResult(*result);
}

void checking(PreviewStage& stage) {
  showUpdate(stage, std::nullopt);
}

void offer(PreviewStage& stage) {
  showUpdate(stage, UpdateOffer{.version = "0.2.0",
                                .downloadBytes = 2'411'724,
                                .notes = "- The history survives a restart.\n"
                                         "- Menus open a little faster.\n"
                                         "- The popover follows the panel to another screen.",
                                .downloadPage = "https://orvane.example/download"});
}

void longOffer(PreviewStage& stage) {
  std::string notes;
  for (int i = 1; i <= 60; ++i) {
    notes += "- Change " + std::to_string(i) +
             ", told in a sentence so long that it has to go on in a second line of the notes.\n";
  }
  showUpdate(stage, UpdateOffer{.version = "12.34.56-beta.7+build.20261123",
                                .downloadBytes = std::nullopt,
                                .notes = notes,
                                .downloadPage = "https://orvane.example/download"});
}

void bareOffer(PreviewStage& stage) {
  showUpdate(stage, UpdateOffer{.version = "0.2.0",
                                .downloadBytes = std::nullopt,
                                .notes = {},
                                .downloadPage = "https://orvane.example/download"});
}

void newest(PreviewStage& stage) {
  showUpdate(stage, UpdateNotNeeded{.newestVersion = "0.1.0"});
}

void packageManager(PreviewStage& stage) {
  showUpdate(stage, UpdateByPackageManager{});
}

void error(PreviewStage& stage) {
  showUpdate(stage, UpdateError{.message = "The server did not answer in time."});
}

void about(PreviewStage& stage) {
  stage.windows().showAbout();
}

}  // namespace

std::vector<Scenario> dialogScenarios() {
  return {
      {"update-checking", "an update check runs", checking},
      {"update-offer", "a newer version with its notes", offer},
      {"update-offer-long", "a newer version with notes to scroll", longOffer},
      {"update-offer-bare", "a newer version without notes", bareOffer},
      {"update-newest", "the running version is the newest", newest},
      {"update-packages", "updates come from the package manager", packageManager},
      {"update-error", "a check that failed", error},
      {"about", "About Orvane", about},
  };
}

}  // namespace orvane::preview
