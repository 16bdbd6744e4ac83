#pragma once
// The choices that the whole program shares. Each is written to the user defaults as soon as it changes.

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include "core/settings.h"

namespace ambrel {

// A write that fails is logged, and the value stands. For QML, enumerations are their names.
class AppSettings : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(QString dockEdge READ dockEdgeName WRITE setDockEdgeName NOTIFY dockEdgeChanged)
  Q_PROPERTY(bool barAlwaysVisible READ barAlwaysVisible WRITE setBarAlwaysVisible NOTIFY barAlwaysVisibleChanged)
  Q_PROPERTY(
      bool barPeeksForContext READ barPeeksForContext WRITE setBarPeeksForContext NOTIFY barPeeksForContextChanged)
  Q_PROPERTY(bool shelfOpensOnHover READ shelfOpensOnHover WRITE setShelfOpensOnHover NOTIFY shelfOpensOnHoverChanged)
  Q_PROPERTY(bool clipboardPreviewInBar READ clipboardPreviewInBar WRITE setClipboardPreviewInBar NOTIFY
                 clipboardPreviewInBarChanged)
  Q_PROPERTY(bool clipboardEnabled READ clipboardEnabled WRITE setClipboardEnabled NOTIFY clipboardEnabledChanged)
  Q_PROPERTY(qint64 clipboardLimit READ clipboardLimit WRITE setClipboardLimit NOTIFY clipboardLimitChanged)
  Q_PROPERTY(qint64 clipboardMaxAgeDays READ clipboardMaxAgeDays WRITE setClipboardMaxAgeDays NOTIFY
                 clipboardMaxAgeDaysChanged)
  Q_PROPERTY(bool clipboardForgetSensitive READ clipboardForgetSensitive WRITE setClipboardForgetSensitive NOTIFY
                 clipboardForgetSensitiveChanged)
  Q_PROPERTY(qint64 clipboardTextMegabytes READ clipboardTextMegabytes WRITE setClipboardTextMegabytes NOTIFY
                 clipboardTextMegabytesChanged)
  Q_PROPERTY(qint64 clipboardPictureMegabytes READ clipboardPictureMegabytes WRITE setClipboardPictureMegabytes NOTIFY
                 clipboardPictureMegabytesChanged)
  Q_PROPERTY(qint64 clipboardListMegabytes READ clipboardListMegabytes WRITE setClipboardListMegabytes NOTIFY
                 clipboardListMegabytesChanged)
  Q_PROPERTY(
      QStringList ignoredBundleIDs READ ignoredBundleIDList WRITE setIgnoredBundleIDList NOTIFY ignoredBundleIDsChanged)
  Q_PROPERTY(bool agentsEnabled READ agentsEnabled WRITE setAgentsEnabled NOTIFY agentsEnabledChanged)
  Q_PROPERTY(
      bool agentNotifications READ agentNotifications WRITE setAgentNotifications NOTIFY agentNotificationsChanged)
  Q_PROPERTY(QString buddyLevel READ buddyLevelName WRITE setBuddyLevelName NOTIFY buddyLevelChanged)
  Q_PROPERTY(
      QStringList buddyCategories READ buddyCategoryNames WRITE setBuddyCategoryNames NOTIFY buddyCategoriesChanged)
  Q_PROPERTY(bool quietHoursOn READ quietHoursOn WRITE setQuietHoursOn NOTIFY quietHoursOnChanged)
  Q_PROPERTY(qint64 quietStartHour READ quietStartHour WRITE setQuietStartHour NOTIFY quietStartHourChanged)
  Q_PROPERTY(qint64 quietEndHour READ quietEndHour WRITE setQuietEndHour NOTIFY quietEndHourChanged)
  Q_PROPERTY(
      qint64 claudeBudgetTokens READ claudeBudgetTokens WRITE setClaudeBudgetTokens NOTIFY claudeBudgetTokensChanged)
  Q_PROPERTY(bool buddyOnlyUnfocusedAgents READ buddyOnlyUnfocusedAgents WRITE setBuddyOnlyUnfocusedAgents NOTIFY
                 buddyOnlyUnfocusedAgentsChanged)

 public:
  // `defaults` outlives the settings.
  explicit AppSettings(UserDefaults& defaults, QObject* parent = nullptr);

  // The defaults have been changed by others.
  void reload();

  const SettingsValues& values() const { return values_; }

  DockEdge dockEdge() const { return values_.dockEdge; }
  bool barAlwaysVisible() const { return values_.barAlwaysVisible; }
  bool barPeeksForContext() const { return values_.barPeeksForContext; }
  bool shelfOpensOnHover() const { return values_.shelfOpensOnHover; }
  bool clipboardPreviewInBar() const { return values_.clipboardPreviewInBar; }
  bool clipboardEnabled() const { return values_.clipboardEnabled; }
  qint64 clipboardLimit() const { return values_.clipboardLimit; }
  qint64 clipboardMaxAgeDays() const { return values_.clipboardMaxAgeDays; }
  bool clipboardForgetSensitive() const { return values_.clipboardForgetSensitive; }
  qint64 clipboardTextMegabytes() const { return values_.clipboardTextMegabytes; }
  qint64 clipboardPictureMegabytes() const { return values_.clipboardPictureMegabytes; }
  qint64 clipboardListMegabytes() const { return values_.clipboardListMegabytes; }
  const std::vector<std::string>& ignoredBundleIDs() const { return values_.ignoredBundleIDs; }
  bool agentsEnabled() const { return values_.agentsEnabled; }
  bool agentNotifications() const { return values_.agentNotifications; }
  BuddyLevel buddyLevel() const { return values_.buddyLevel; }
  const std::set<BuddyCategory>& buddyCategories() const { return values_.buddyCategories; }
  bool quietHoursOn() const { return values_.quietHoursOn; }
  qint64 quietStartHour() const { return values_.quietStartHour; }
  qint64 quietEndHour() const { return values_.quietEndHour; }
  qint64 claudeBudgetTokens() const { return values_.claudeBudgetTokens; }
  bool buddyOnlyUnfocusedAgents() const { return values_.buddyOnlyUnfocusedAgents; }

  void setDockEdge(DockEdge value);
  void setBarAlwaysVisible(bool value);
  void setBarPeeksForContext(bool value);
  void setShelfOpensOnHover(bool value);
  void setClipboardPreviewInBar(bool value);
  void setClipboardEnabled(bool value);
  void setClipboardLimit(qint64 value);
  void setClipboardMaxAgeDays(qint64 value);
  void setClipboardForgetSensitive(bool value);
  void setClipboardTextMegabytes(qint64 value);
  void setClipboardPictureMegabytes(qint64 value);
  void setClipboardListMegabytes(qint64 value);
  void setIgnoredBundleIDs(std::vector<std::string> value);
  void setAgentsEnabled(bool value);
  void setAgentNotifications(bool value);
  void setBuddyLevel(BuddyLevel value);
  void setBuddyCategories(std::set<BuddyCategory> value);
  void setQuietHoursOn(bool value);
  void setQuietStartHour(qint64 value);
  void setQuietEndHour(qint64 value);
  void setClaudeBudgetTokens(qint64 value);
  void setBuddyOnlyUnfocusedAgents(bool value);

  // A name that is no case changes nothing; of a list of names those that are known count.
  QString dockEdgeName() const;
  void setDockEdgeName(const QString& name);
  QString buddyLevelName() const;
  void setBuddyLevelName(const QString& name);
  QStringList buddyCategoryNames() const;
  void setBuddyCategoryNames(const QStringList& names);
  QStringList ignoredBundleIDList() const;
  void setIgnoredBundleIDList(const QStringList& list);

 Q_SIGNALS:
  void dockEdgeChanged();
  void barAlwaysVisibleChanged();
  void barPeeksForContextChanged();
  void shelfOpensOnHoverChanged();
  void clipboardPreviewInBarChanged();
  void clipboardEnabledChanged();
  void clipboardLimitChanged();
  void clipboardMaxAgeDaysChanged();
  void clipboardForgetSensitiveChanged();
  void clipboardTextMegabytesChanged();
  void clipboardPictureMegabytesChanged();
  void clipboardListMegabytesChanged();
  void ignoredBundleIDsChanged();
  void agentsEnabledChanged();
  void agentNotificationsChanged();
  void buddyLevelChanged();
  void buddyCategoriesChanged();
  void quietHoursOnChanged();
  void quietStartHourChanged();
  void quietEndHourChanged();
  void claudeBudgetTokensChanged();
  void buddyOnlyUnfocusedAgentsChanged();

 private:
  template <typename T>
  void change(T SettingsValues::*field, T value, const char* key, void (AppSettings::*changed)());

  UserDefaults& defaults_;
  SettingsValues values_;
};

}  // namespace ambrel
