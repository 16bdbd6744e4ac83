#include "app/usage/ClaudeBudgetModel.h"

#include "app/base/StoredValue.h"
#include "app/model/AppSettings.h"
#include "core/base/LocalText.h"
#include "core/usage/TokenBudget.h"

namespace ambrel {

ClaudeBudgetModel::ClaudeBudgetModel(AppSettings& settings, Calendar calendar, QObject* parent)
    : QObject(parent), settings_(settings), calendar_(std::move(calendar)) {
  connect(&settings_, &AppSettings::claudeBudgetTokensChanged, this, &ClaudeBudgetModel::changed);
}

bool ClaudeBudgetModel::isOff() const { return settings_.claudeBudgetTokens() <= 0; }

QString ClaudeBudgetModel::text() const {
  return isOff() ? tr("Off") : tr("%1 tokens").arg(toQString(compactCount(calendar_, settings_.claudeBudgetTokens())));
}

void ClaudeBudgetModel::step(int by) {
  settings_.set(setting::claudeBudgetTokens, steppedBudget(settings_.claudeBudgetTokens(), by));
}

}  // namespace ambrel
