#pragma once
// What every widget of the bar may reach: the models, and the callbacks that lead to panels and to the bar.

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <map>

#include "app/agents/AgentsModel.h"
#include "app/base/Area.h"
#include "app/buddy/BuddyNoticeCenter.h"
#include "app/clipboard/ClipboardModel.h"
#include "app/context/BarLimits.h"
#include "app/disk/DiskCleaner.h"
#include "app/focus/FocusArea.h"
#include "app/model/AppModel.h"
#include "app/model/AppSettings.h"
#include "app/telemetry/LiveModels.h"
#include "app/telemetry/SystemMonitor.h"
#include "app/time/ClockModel.h"
#include "app/usage/AIUsageModel.h"
#include "app/weather/WeatherArea.h"

namespace ambrel {

// Holds references alone; the models belong to the application delegate and outlive it.
class WidgetContext : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::AppModel* model READ model CONSTANT)
  Q_PROPERTY(ambrel::AppSettings* settings READ settings CONSTANT)
  Q_PROPERTY(ambrel::AgentsModel* agents READ agents CONSTANT)
  Q_PROPERTY(ambrel::SystemMonitor* system READ system CONSTANT)
  Q_PROPERTY(ambrel::ClockModel* clock READ clock CONSTANT)
  Q_PROPERTY(ambrel::AIUsageModel* usage READ usage CONSTANT)
  Q_PROPERTY(ambrel::FocusArea* focus READ focus CONSTANT)
  Q_PROPERTY(ambrel::LiveModels* readings READ live CONSTANT)
  Q_PROPERTY(ambrel::WeatherArea* weather READ weather CONSTANT)
  Q_PROPERTY(ambrel::BuddyNoticeCenter* notices READ notices CONSTANT)
  Q_PROPERTY(ambrel::DiskCleaner* disk READ disk CONSTANT)
  Q_PROPERTY(ambrel::ClipboardModel* clipboard READ clipboard CONSTANT)
  Q_PROPERTY(ambrel::BarLimits* barLimits READ barLimits CONSTANT)
  // Whether the tiles are on screen: what is not seen need not be kept current.
  Q_PROPERTY(bool widgetsActive READ widgetsActive NOTIFY widgetsActiveChanged)
  Q_PROPERTY(QStringList lockedWidgets READ lockedWidgets NOTIFY lockedWidgetsChanged)

 public:
  struct Models {
    AppModel& model;
    AppSettings& settings;
    AgentsModel& agents;
    SystemMonitor& system;
    ClockModel& clock;
    // Each of these serves tiles of its own alone; without it none of them may be on the bar.
    AIUsageModel* usage = nullptr;
    FocusArea* focus = nullptr;
    LiveModels* live = nullptr;
    WeatherArea* weather = nullptr;
    BuddyNoticeCenter* notices = nullptr;
    DiskCleaner* disk = nullptr;
    ClipboardModel* clipboard = nullptr;
  };
  explicit WidgetContext(const Models& models, QObject* parent = nullptr);

  AppModel* model() const { return &models_.model; }
  AppSettings* settings() const { return &models_.settings; }
  AgentsModel* agents() const { return &models_.agents; }
  SystemMonitor* system() const { return &models_.system; }
  ClockModel* clock() const { return &models_.clock; }
  AIUsageModel* usage() const { return models_.usage; }
  FocusArea* focus() const { return models_.focus; }
  LiveModels* live() const { return models_.live; }
  WeatherArea* weather() const { return models_.weather; }
  BuddyNoticeCenter* notices() const { return models_.notices; }
  // The character.
  Buddy* buddy() const { return models_.notices ? models_.notices->buddy() : nullptr; }
  DiskCleaner* disk() const { return models_.disk; }
  ClipboardModel* clipboard() const { return models_.clipboard; }
  BarLimits* barLimits() { return &barLimits_; }
  bool widgetsActive() const { return widgetsActive_; }
  void setWidgetsActive(bool active);

  // What tiles ask for is carried out by the delegate, which assigns these; until then a call does nothing.
  struct Actions {
    std::function<void(const QString& title, const QString& detail, const QString& symbol)> showToast;
    std::function<void(const QString& text)> copyText;
    std::function<void()> openCustomize;
    std::function<void(const QString& widget, const QString& item, const QUrl& source, const QVariantMap& properties)>
        openPanel;
    std::function<void(const QString& item, const QString& ownText, const QString& ownSymbol)> openTileMenu;
    std::function<void(const QString& widget)> unlock;
    std::function<void(const QString&tab)> openSettings, chooseSettingsTab;
    std::function<void()> openPurchasePage;
    std::function<void()> finishWelcome;
  };
  Actions actions;

  // The areas whose tiles may be on the bar, by their names. They outlive the context.
  void addArea(Area& area) { areas_[area.name()] = &area; }
  Area* area(const QString& name) const;
  // The widgets that the licence does not allow.
  const QStringList& lockedWidgets() const { return lockedWidgets_; }
  void setLockedWidgets(const QStringList& widgets);

  Q_INVOKABLE void showToast(const QString& title, const QString& detail, const QString& symbol) const;
  Q_INVOKABLE void copyText(const QString& text) const;
  Q_INVOKABLE void openCustomize() const;
  Q_INVOKABLE void openSettings(const QString& tab) const;
  // Another page of the settings that are open.
  Q_INVOKABLE void chooseSettingsTab(const QString& tab) const;
  Q_INVOKABLE void openPurchasePage() const;
  // The guide is not shown at the next start.
  Q_INVOKABLE void finishWelcome() const;
  // Opens or closes a panel beside the tile of a slot.
  Q_INVOKABLE void openPanel(const QString& widget, const QString& item, const QUrl& source,
                             const QVariantMap& properties) const;
  // What can be done with the tile of a slot; `ownText` names a command of the tile's own, empty without one.
  Q_INVOKABLE void openTileMenu(const QString& item, const QString& ownText, const QString& ownSymbol) const;
  // Says what the licence would give.
  Q_INVOKABLE void unlock(const QString& widget) const;

  // The first slot of the active profile that holds the widget; empty when none does.
  QString itemOf(const QString& widget) const;

 Q_SIGNALS:
  void widgetsActiveChanged();
  void lockedWidgetsChanged();
  // The tile of this slot is to do what a click does, or the command that it has in its menu.
  void activationAsked(const QString& item);
  void menuCommandChosen(const QString& item);

 private:
  Models models_;
  BarLimits barLimits_;
  std::map<QString, Area*> areas_;
  QStringList lockedWidgets_;
  bool widgetsActive_ = false;
};

}  // namespace ambrel
