// The usage meters and the connection to Claude Code's own percentages.

#include "app/AppDelegate.h"
#include "app/base/QmlObjects.h"

namespace ambrel {

void AppDelegate::makeUsage() {
  usage_ = std::make_unique<AIUsageModel>(
      surroundings_.home, surroundings_.dataFolder,
      AIUsageModel::Seams{.background = background_, .now = surroundings_.now, .calendar = surroundings_.calendar});
  statusLine_ =
      std::make_unique<ClaudeStatusLineModel>(ClaudeStatusLine::Files(surroundings_.home, surroundings_.dataFolder));
  claudeBudget_ = std::make_unique<ClaudeBudgetModel>(settings_, surroundings_.calendar);
  keep({usage_.get(), usage_->claudeTile(), usage_->codexTile(), statusLine_.get(), claudeBudget_.get()});
  connect(statusLine_.get(), &ClaudeStatusLineModel::connectionChanged, usage_.get(), &AIUsageModel::refresh);
  addToSettingsPage(QStringLiteral("buddy"), QStringLiteral("statusLine"), *statusLine_);
  addToSettingsPage(QStringLiteral("buddy"), QStringLiteral("budget"), *claudeBudget_);
}

}  // namespace ambrel
