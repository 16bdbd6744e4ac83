#include "app/base/ConnectionModel.h"

#include "app/base/Log.h"

namespace ambrel {

void ConnectionModel::follow(const std::filesystem::path& settings) {
  settings_ = std::make_unique<FollowedFile>(settings);
  connect(settings_.get(), &FollowedFile::changed, this, &ConnectionModel::look);
  settings_->start();
  isConnected_ = isMade();
}

void ConnectionModel::look() {
  const bool isConnected = isMade();
  update(isConnected, isConnected == isConnected_ ? problem_ : QString());
}

void ConnectionModel::install() { perform(&ConnectionModel::make); }
void ConnectionModel::remove() { perform(&ConnectionModel::unmake); }

void ConnectionModel::perform(void (ConnectionModel::*action)()) {
  QString problem;
  try {
    (this->*action)();
  } catch (const std::exception& error) {
    logLine(std::string("cannot change the settings of a tool: ") + error.what());
    problem = cannotChange();
  }
  update(isMade(), problem);
}

void ConnectionModel::update(bool isConnected, const QString& problem) {
  if (isConnected == isConnected_ && problem == problem_) return;
  const bool isOther = isConnected != isConnected_;
  isConnected_ = isConnected;
  problem_ = problem;
  Q_EMIT changed();
  if (isOther) Q_EMIT connectionChanged();
}

}  // namespace ambrel
