#include "ui/dialogs/update_model.h"

#include <utility>

namespace orvane {

UpdateModel::UpdateModel(UpdateClosures closures, std::string runningVersion, QObject* parent)
    : QObject(parent), closures_(std::move(closures)), runningVersion_(std::move(runningVersion)) {}

void UpdateModel::setChecking() {
  result_.reset();
  texts_ = updateCheckingTexts();
  Q_EMIT changed();
}

void UpdateModel::setResult(const UpdateResult& result) {
  result_ = result;
  texts_ = updateResultTexts(result, runningVersion_);
  Q_EMIT changed();
}

void UpdateModel::pressPrimary() {
  if (!result_) return;
  if (std::holds_alternative<UpdateError>(*result_)) {
    if (closures_.tryAgain) closures_.tryAgain();
    return;
  }
  if (const auto* offer = std::get_if<UpdateOffer>(&*result_); offer && closures_.openPage) {
    closures_.openPage(offer->downloadPage);
  }
  close();
}

void UpdateModel::pressSecondary() {
  close();
}

void UpdateModel::close() const {
  if (closures_.close) closures_.close();
}

}  // namespace orvane
