#include "app/model/AppSettings.h"

#include <utility>

#include "app/base/Log.h"

namespace ambrel {
namespace {

QString text(std::string_view name) { return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())); }

}  // namespace

AppSettings::AppSettings(UserDefaults& defaults, QObject* parent)
    : QObject(parent), defaults_(defaults), values_(loadSettings(defaults)) {}

template <typename T>
void AppSettings::change(T SettingsValues::*field, T value, const char* key, void (AppSettings::*changed)()) {
  if (values_.*field == value) return;
  // The value comes first, so that nobody reads an older one than the defaults hold.
  values_.*field = std::move(value);
  try {
    defaults_.set(key, storedForm(values_.*field));
  } catch (const std::exception& error) {
    logLine(std::string("cannot save settings: ") + error.what());
  }
  Q_EMIT(this->*changed)();
}

using Values = SettingsValues;

void AppSettings::setDockEdge(DockEdge value) {
  change(&Values::dockEdge, value, "dockEdge", &AppSettings::dockEdgeChanged);
}
void AppSettings::setBarAlwaysVisible(bool value) {
  change(&Values::barAlwaysVisible, value, "barAlwaysVisible", &AppSettings::barAlwaysVisibleChanged);
}
void AppSettings::setBarPeeksForContext(bool value) {
  change(&Values::barPeeksForContext, value, "barPeeksForContext", &AppSettings::barPeeksForContextChanged);
}
void AppSettings::setShelfOpensOnHover(bool value) {
  change(&Values::shelfOpensOnHover, value, "shelfOpensOnHover", &AppSettings::shelfOpensOnHoverChanged);
}
void AppSettings::setClipboardPreviewInBar(bool value) {
  change(&Values::clipboardPreviewInBar, value, "clipboardPreviewInBar", &AppSettings::clipboardPreviewInBarChanged);
}
void AppSettings::setClipboardEnabled(bool value) {
  change(&Values::clipboardEnabled, value, "clipboardEnabled", &AppSettings::clipboardEnabledChanged);
}
void AppSettings::setClipboardLimit(qint64 value) {
  change<std::int64_t>(&Values::clipboardLimit, value, "clipboardLimit", &AppSettings::clipboardLimitChanged);
}
void AppSettings::setClipboardMaxAgeDays(qint64 value) {
  change<std::int64_t>(&Values::clipboardMaxAgeDays, value, "clipboardMaxAgeDays",
                       &AppSettings::clipboardMaxAgeDaysChanged);
}
void AppSettings::setClipboardForgetSensitive(bool value) {
  change(&Values::clipboardForgetSensitive, value, "clipboardForgetSensitive",
         &AppSettings::clipboardForgetSensitiveChanged);
}
void AppSettings::setClipboardTextMegabytes(qint64 value) {
  change<std::int64_t>(&Values::clipboardTextMegabytes, value, "clipboardTextMegabytes",
                       &AppSettings::clipboardTextMegabytesChanged);
}
void AppSettings::setClipboardPictureMegabytes(qint64 value) {
  change<std::int64_t>(&Values::clipboardPictureMegabytes, value, "clipboardPictureMegabytes",
                       &AppSettings::clipboardPictureMegabytesChanged);
}
void AppSettings::setClipboardListMegabytes(qint64 value) {
  change<std::int64_t>(&Values::clipboardListMegabytes, value, "clipboardListMegabytes",
                       &AppSettings::clipboardListMegabytesChanged);
}
void AppSettings::setIgnoredBundleIDs(std::vector<std::string> value) {
  change(&Values::ignoredBundleIDs, std::move(value), "ignoredBundleIDs", &AppSettings::ignoredBundleIDsChanged);
}
void AppSettings::setAgentsEnabled(bool value) {
  change(&Values::agentsEnabled, value, "agentsEnabled", &AppSettings::agentsEnabledChanged);
}
void AppSettings::setAgentNotifications(bool value) {
  change(&Values::agentNotifications, value, "agentNotifications", &AppSettings::agentNotificationsChanged);
}
void AppSettings::setBuddyLevel(BuddyLevel value) {
  change(&Values::buddyLevel, value, "buddyLevel", &AppSettings::buddyLevelChanged);
}
void AppSettings::setBuddyCategories(std::set<BuddyCategory> value) {
  change(&Values::buddyCategories, std::move(value), "buddyCategories", &AppSettings::buddyCategoriesChanged);
}
void AppSettings::setQuietHoursOn(bool value) {
  change(&Values::quietHoursOn, value, "quietHoursOn", &AppSettings::quietHoursOnChanged);
}
void AppSettings::setQuietStartHour(qint64 value) {
  change<std::int64_t>(&Values::quietStartHour, value, "quietStartHour", &AppSettings::quietStartHourChanged);
}
void AppSettings::setQuietEndHour(qint64 value) {
  change<std::int64_t>(&Values::quietEndHour, value, "quietEndHour", &AppSettings::quietEndHourChanged);
}
void AppSettings::setClaudeBudgetTokens(qint64 value) {
  change<std::int64_t>(&Values::claudeBudgetTokens, value, "claudeBudgetTokens",
                       &AppSettings::claudeBudgetTokensChanged);
}
void AppSettings::setBuddyOnlyUnfocusedAgents(bool value) {
  change(&Values::buddyOnlyUnfocusedAgents, value, "buddyOnlyUnfocusedAgents",
         &AppSettings::buddyOnlyUnfocusedAgentsChanged);
}

void AppSettings::reload() {
  const Values before = std::exchange(values_, loadSettings(defaults_));
  const auto tell = [&](auto field, void (AppSettings::*changed)()) {
    if (before.*field != values_.*field) Q_EMIT(this->*changed)();
  };
  tell(&Values::dockEdge, &AppSettings::dockEdgeChanged);
  tell(&Values::barAlwaysVisible, &AppSettings::barAlwaysVisibleChanged);
  tell(&Values::barPeeksForContext, &AppSettings::barPeeksForContextChanged);
  tell(&Values::shelfOpensOnHover, &AppSettings::shelfOpensOnHoverChanged);
  tell(&Values::clipboardPreviewInBar, &AppSettings::clipboardPreviewInBarChanged);
  tell(&Values::clipboardEnabled, &AppSettings::clipboardEnabledChanged);
  tell(&Values::clipboardLimit, &AppSettings::clipboardLimitChanged);
  tell(&Values::clipboardMaxAgeDays, &AppSettings::clipboardMaxAgeDaysChanged);
  tell(&Values::clipboardForgetSensitive, &AppSettings::clipboardForgetSensitiveChanged);
  tell(&Values::ignoredBundleIDs, &AppSettings::ignoredBundleIDsChanged);
  tell(&Values::agentsEnabled, &AppSettings::agentsEnabledChanged);
  tell(&Values::agentNotifications, &AppSettings::agentNotificationsChanged);
  tell(&Values::buddyLevel, &AppSettings::buddyLevelChanged);
  tell(&Values::buddyCategories, &AppSettings::buddyCategoriesChanged);
  tell(&Values::quietHoursOn, &AppSettings::quietHoursOnChanged);
  tell(&Values::quietStartHour, &AppSettings::quietStartHourChanged);
  tell(&Values::quietEndHour, &AppSettings::quietEndHourChanged);
  tell(&Values::claudeBudgetTokens, &AppSettings::claudeBudgetTokensChanged);
  tell(&Values::buddyOnlyUnfocusedAgents, &AppSettings::buddyOnlyUnfocusedAgentsChanged);
}

QString AppSettings::dockEdgeName() const { return text(nameOf(values_.dockEdge)); }

void AppSettings::setDockEdgeName(const QString& name) {
  if (const auto edge = fromName<DockEdge>(name.toStdString())) setDockEdge(*edge);
}

QString AppSettings::buddyLevelName() const { return text(nameOf(values_.buddyLevel)); }

void AppSettings::setBuddyLevelName(const QString& name) {
  if (const auto level = fromName<BuddyLevel>(name.toStdString())) setBuddyLevel(*level);
}

QStringList AppSettings::buddyCategoryNames() const {
  QStringList names;
  for (const BuddyCategory category : values_.buddyCategories) names.append(text(nameOf(category)));
  return names;
}

void AppSettings::setBuddyCategoryNames(const QStringList& names) {
  std::set<BuddyCategory> categories;
  for (const QString& name : names)
    if (const auto category = fromName<BuddyCategory>(name.toStdString())) categories.insert(*category);
  setBuddyCategories(std::move(categories));
}

QStringList AppSettings::ignoredBundleIDList() const {
  QStringList list;
  for (const auto& id : values_.ignoredBundleIDs) list.append(QString::fromStdString(id));
  return list;
}

void AppSettings::setIgnoredBundleIDList(const QStringList& list) {
  std::vector<std::string> ids;
  for (const QString& id : list) ids.push_back(id.toStdString());
  setIgnoredBundleIDs(std::move(ids));
}

}  // namespace ambrel
