#pragma once
// What every widget of the bar may reach: the models, and the callbacks that lead to panels and to the bar.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <map>

#include "app/agents/AgentsModel.h"
#include "app/buddy/BuddyNoticeCenter.h"
#include "app/clipboard/ClipboardModel.h"
#include "app/context/BarLimits.h"
#include "app/disk/DiskCleaner.h"
#include "app/focus/FocusModels.h"
#include "app/model/AppModel.h"
#include "app/model/AppSettings.h"
#include "app/telemetry/LiveModels.h"
#include "app/usage/AIUsageModel.h"
#include "app/weather/WeatherModels.h"
#include "app/widgets/ClockModel.h"
#include "app/widgets/SystemMonitor.h"

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
  Q_PROPERTY(ambrel::FocusModels* focus READ focus CONSTANT)
  Q_PROPERTY(ambrel::LiveModels* live READ live CONSTANT)
  Q_PROPERTY(ambrel::WeatherModels* weather READ weather CONSTANT)
  Q_PROPERTY(ambrel::BuddyNoticeCenter* notices READ notices CONSTANT)
  Q_PROPERTY(ambrel::DiskCleaner* disk READ disk CONSTANT)
  Q_PROPERTY(ambrel::ClipboardModel* clipboard READ clipboard CONSTANT)
  Q_PROPERTY(ambrel::BarLimits* barLimits READ barLimits CONSTANT)
  // Whether the tiles are on screen: what is not seen need not be kept current.
  Q_PROPERTY(bool widgetsActive READ widgetsActive NOTIFY widgetsActiveChanged)

 public:
  struct Models {
    AppModel& model;
    AppSettings& settings;
    AgentsModel& agents;
    SystemMonitor& system;
    ClockModel& clock;
    // Each of these serves tiles of its own alone; without it none of them may stand on the bar.
    AIUsageModel* usage = nullptr;
    FocusModels* focus = nullptr;
    LiveModels* live = nullptr;
    WeatherModels* weather = nullptr;
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
  FocusModels* focus() const { return models_.focus; }
  LiveModels* live() const { return models_.live; }
  WeatherModels* weather() const { return models_.weather; }
  BuddyNoticeCenter* notices() const { return models_.notices; }
  // The character.
  Buddy* buddy() const { return models_.notices ? models_.notices->buddy() : nullptr; }
  DiskCleaner* disk() const { return models_.disk; }
  ClipboardModel* clipboard() const { return models_.clipboard; }
  BarLimits* barLimits() { return &barLimits_; }
  bool widgetsActive() const { return widgetsActive_; }
  void setWidgetsActive(bool active);

  // Assigned by the delegate when what they lead to exists; until then a call does nothing.
  std::function<void(const QString& title, const QString& detail, const QString& symbol)> onShowToast;
  std::function<void()> onToggleCustomize;
  std::function<void(const QString& item)> onOpenTileMenu;
  // What a click on a widget leads to, and what its wish for settings does; `item` is the slot it stands in, empty
  // when the wish comes from elsewhere.
  using TileAction = std::function<void(const QString& item)>;
  void setClickAction(const QString& widget, TileAction action);
  void setSettingsAction(const QString& widget, TileAction action);
  // A command of the widget's own in its tile's menu.
  struct MenuCommand {
    std::function<QString()> text;
    QString symbol;
    TileAction action;
  };
  void setMenuCommand(const QString& widget, MenuCommand command);
  const MenuCommand* menuCommand(const QString& widget) const;

  Q_INVOKABLE void showToast(const QString& title, const QString& detail, const QString& symbol) const;
  Q_INVOKABLE void toggleCustomize() const;
  // What can be done with the tile of a slot.
  Q_INVOKABLE void openTileMenu(const QString& item) const;
  // Carries out what was set for the widget; nothing when nothing was.
  Q_INVOKABLE void activate(const QString& widget, const QString& item) const;
  Q_INVOKABLE void openSettings(const QString& widget, const QString& item) const;

  // The first slot of the active profile that holds the widget; empty when none does.
  QString itemOf(const QString& widget) const;

 Q_SIGNALS:
  void widgetsActiveChanged();

 private:
  Models models_;
  BarLimits barLimits_;
  std::map<QString, TileAction> clickActions_, settingsActions_;
  std::map<QString, MenuCommand> menuCommands_;
  bool widgetsActive_ = false;
};

}  // namespace ambrel
