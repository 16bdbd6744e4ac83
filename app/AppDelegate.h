#pragma once
// Builds every long-lived object once, in a fixed order, and connects the areas of the program to the bar. Nothing is
// ever rebuilt, and there is no shutdown step: every write happens when its state changes.

#include <QObject>
#include <QQmlEngine>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "app/StoredDefaults.h"
#include "app/TrayMenu.h"
#include "app/agents/AgentsArea.h"
#include "app/assistant/AssistantArea.h"
#include "app/base/DueTimer.h"
#include "app/base/PointerRelay.h"
#include "app/buddy/BuddyArea.h"
#include "app/clipboard/ClipboardArea.h"
#include "app/context/WidgetContext.h"
#include "app/disk/DiskArea.h"
#include "app/dock/BarPanels.h"
#include "app/dock/BubbleController.h"
#include "app/dock/ContextPeeker.h"
#include "app/dock/DockPanelController.h"
#include "app/focus/FocusArea.h"
#include "app/kit/DesktopAppearance.h"
#include "app/model/AppModel.h"
#include "app/model/AppSettings.h"
#include "app/model/LicenseManager.h"
#include "app/notes/NotesArea.h"
#include "app/panels/GalleryModel.h"
#include "app/shelf/ShelfPanelController.h"
#include "app/telemetry/TelemetryArea.h"
#include "app/time/TimeArea.h"
#include "app/usage/UsageArea.h"
#include "app/weather/WeatherArea.h"
#include "app/window/TipController.h"
#include "app/window/ToastController.h"
#include "core/workspace/Wish.h"
#include "platform/Desktop.h"

namespace ambrel {

class AppDelegate : public QObject, private Shell {
  Q_OBJECT

 public:
  AppDelegate(Surroundings surroundings, Desktop desktop, QObject* parent = nullptr);
  ~AppDelegate() override;

  // Builds the bar, its panels and the timers, and shows what is to be shown.
  void launch();

  void carryOut(const Wish& wish);
  void carryOut(MenuCommand command, const std::optional<UUID>& profile);

  // Reached by the tests.
  AppModel& model() { return model_; }
  AppSettings& settings() { return settings_; }
  AgentsModel& agents() { return *agents_.agents(); }
  ClipboardModel& clipboard() { return *clipboard_.clipboard(); }
  ShelfPanelController* shelf() { return shelf_.get(); }
  LicenseManager& license() { return license_; }
  bool isAnyPanelOpen() const;
  WidgetContext* context() { return context_.get(); }
  ContextPeeker* peeker() { return peeker_.get(); }
  DockPanelController* dock() { return dock_.get(); }
  DockPopoverController* agentsPanel() { return &panel("Agents", "AgentsPanelView"); }
  DockPopoverController* inboxPanel();
  DockPopoverController* assistantPanel() { return &panel("Assistant", "AssistantPanel"); }
  DockPopoverController* customizePanel();
  DockPopoverController* welcomePanel() { return &panel("Panels", "WelcomeView"); }
  DockPopoverController* settingsPanel();
  Assistant* assistant() { return assistant_->assistant(); }
  BuddyNoticeCenter* notices() { return buddy_->center(); }
  FocusArea& focus() { return *focus_; }
  WeatherArea& weather() { return *weather_; }
  ClockModel& clock() { return *time_->clock(); }
  DiskDoctorController* diskDoctor() { return &disk_->window(); }
  NotesArea& screenNotes() { return *notes_; }
  QQmlEngine& engine() { return engine_; }

 private:
  void makeShelf();
  void makeAreas();
  void makeContext();
  void followContext();
  void makeDock();
  void makePanels();
  void makeBubble();
  void makePeeker();
  void registerKeys();
  void startTimers();
  void startProServices();
  void handleNotifications();
  void addBuddyOnce();
  void firstRun();
  void widgetsChanged();
  void panelsChanged();
  void followPresses();
  void pressedSomewhere();

  DockPopoverController& panel(const char* module, const char* file, const QVariantMap& properties = {});
  void openSettings(const QString& tab);
  // An empty question is for the user to type.
  void askBuddy(const QString& question);
  void chooseSettingsTab(const QString& tab);
  // Whether the licence allows the feature; if not, it says what the licence would give.
  bool permits(ProFeature feature);
  void prepareTheme();
  void every(Seconds interval, std::function<void()> action);
  void followZone();
  void followDefaults();
  void warn(const QString& title, const QString& detail);
  DelayedStep later();

  // What areas ask for.
  void showToast(const QString& title, const QString& detail, const QString& symbol) override;
  void copyText(const QString& text) override;
  bool isOnBar(DockWidget widget) const override;
  bool isInAnyProfile(DockWidget widget) const override;
  void activate(DockWidget widget) override;

  Surroundings surroundings_;
  Desktop desktop_;
  ToastController toast_;
  StoredDefaults stored_;
  UserDefaults& defaults_ = stored_.values();
  AppSettings settings_;
  LicenseManager license_;
  AppModel model_;
  Background background_;
  AgentsArea agents_;
  ClipboardArea clipboard_;
  DesktopAppearance appearance_;
  QQmlEngine engine_;
  DueTimer due_;
  GalleryModel gallery_;
  std::unique_ptr<TimeArea> time_;
  std::unique_ptr<TelemetryArea> telemetry_;
  std::unique_ptr<UsageArea> usage_;
  ChatServerModel languageModel_;
  std::unique_ptr<DiskArea> disk_;
  std::unique_ptr<NotesArea> notes_;
  std::unique_ptr<FocusArea> focus_;
  std::unique_ptr<WeatherArea> weather_;
  std::unique_ptr<BuddyArea> buddy_;
  std::unique_ptr<AssistantArea> assistant_;
  std::vector<Area*> areas_;  // all of them; the agents' last, which answer what is nobody else's
  Instant bubblePeek_{};      // until when the bubble's peek lasts
  std::unique_ptr<WidgetContext> context_;
  PointerRelay pointers_;
  std::unique_ptr<PointerMonitor> dockPointer_, shelfPointer_;
  std::unique_ptr<ShelfPanelController> shelf_;
  std::unique_ptr<DockPanelController> dock_;
  std::unique_ptr<BarPanels> panels_;
  std::unique_ptr<BubbleController> bubble_;
  std::unique_ptr<TipController> tips_;
  std::unique_ptr<ContextPeeker> peeker_;
  std::unique_ptr<TrayMenu> tray_;
  QTimer clockTimer_;
  bool proServicesStarted_ = false;
  bool followsPresses_ = false;
  // What the connections between the areas and the bar belong to. It ends first: a tile that has the keyboard loses it
  // when the bar's window ends, and that is of no interest any more.
  std::unique_ptr<QObject> wiring_ = std::make_unique<QObject>();
};

}  // namespace ambrel
