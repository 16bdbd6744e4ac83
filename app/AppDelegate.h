#pragma once
// Builds every long-lived object once, in a fixed order, and hands them to one another. Nothing is ever rebuilt, and
// there is no shutdown step: every write happens when its state changes.

#include <QObject>
#include <QQmlEngine>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "app/Surroundings.h"
#include "app/agents/AgentsModel.h"
#include "app/base/DueTimer.h"
#include "app/base/PointerRelay.h"
#include "app/buddy/BuddyNoticeCenter.h"
#include "app/clipboard/ClipboardModel.h"
#include "app/context/WidgetContext.h"
#include "app/disk/DiskDoctorController.h"
#include "app/dock/BubbleController.h"
#include "app/dock/ContextPeeker.h"
#include "app/dock/DockPanelController.h"
#include "app/dock/DockPopoverController.h"
#include "app/dock/TipController.h"
#include "app/dock/ToastController.h"
#include "app/kit/DesktopAppearance.h"
#include "app/menu/MenuModel.h"
#include "app/menu/StatusItem.h"
#include "app/model/AppModel.h"
#include "app/model/AppSettings.h"
#include "app/model/DefaultsWatcher.h"
#include "app/model/LicenseManager.h"
#include "app/panels/AppearanceSettings.h"
#include "app/panels/GalleryModel.h"
#include "app/shelf/ShelfPanelController.h"
#include "app/telemetry/LiveModels.h"
#include "app/usage/AIUsageModel.h"
#include "app/usage/ClaudeBudgetModel.h"
#include "app/usage/ClaudeStatusLineModel.h"
#include "app/widgets/ClockModel.h"
#include "app/widgets/SystemMonitor.h"
#include "core/base/UserDefaults.h"
#include "core/workspace/Wish.h"
#include "platform/Desktop.h"

namespace ambrel {

class AppDelegate : public QObject {
  Q_OBJECT

 public:
  AppDelegate(Surroundings surroundings, Desktop desktop, QObject* parent = nullptr);
  ~AppDelegate() override;

  // Builds the bar, its panels and the timers, and shows what is to be shown.
  void launch();

  void carryOut(const Wish& wish);
  void carryOut(MenuCommand command, const std::optional<UUID>& profile);

  // Reached by the tests and by the menu.
  AppModel& model() { return model_; }
  AppSettings& settings() { return settings_; }
  AgentsModel& agents() { return agents_; }
  ClipboardModel& clipboard() { return *clipboard_; }
  ShelfPanelController* shelf() { return shelf_.get(); }
  LicenseManager& license() { return license_; }
  bool isAnyPanelOpen() const;
  WidgetContext* context() { return context_.get(); }
  ContextPeeker* peeker() { return peeker_.get(); }
  DockPanelController* dock() { return dock_.get(); }
  DockPopoverController* agentsPanel() { return agentsPanel_.get(); }
  DockPopoverController* customizePanel() { return customizePanel_.get(); }
  DockPopoverController* welcomePanel() { return welcomePanel_.get(); }
  DockPopoverController* settingsPanel() { return settingsPanel_.get(); }
  BuddyNoticeCenter* notices() { return notices_.get(); }
  DockPopoverController* inboxPanel() { return inboxPanel_; }
  DiskDoctorController* diskDoctor() { return diskDoctor_.get(); }
  QQmlEngine& engine() { return engine_; }

 private Q_SLOTS:
  void openCustomize();
  // The user has gone through the guide, which is then not shown at the next start.
  void finishWelcome();
  void openAgentSettings();
  void openBuddySettings();
  void openClipboardSettings();
  void openPurchasePage();
  void chooseSettingsTab(const QString& tab);
  void chooseTileCommand();
  // Puts it on the pasteboard and says so.
  void copyText(const QString& text);

 private:
  // The models of one area each, before the context that holds them; app/wiring has a source for each area.
  void makeBuddy();
  void makeClipboard();
  void makeUsage();
  void makeDisk();
  void makeFocus();
  void makeTelemetry();
  void makeWeather();
  // What a scan has found, in Buddy's words.
  void tellOfDiskScan();
  // Their panels.
  void addBuddyPanels();
  void addFocusPanels();
  void addTelemetryPanels();
  void addWeatherPanels();

  void makeShelf();
  void makeContext();
  void makePanels();
  void makeDock();
  void startBuddy();
  void makePeeker();
  void registerHotKeys();
  void registerClipboardKeys();
  void addHotKey(const KeyCombination& keys, const std::string& what, std::function<void()> action);
  void startTimers();
  void startProServices();
  void makeStatusItem();
  void updateStatusItem();
  void addBuddyOnce();
  void firstRun();

  std::unique_ptr<DockPopoverController> makePanel(const char* source, QVariantMap properties, QSize size);
  // A panel that a click on any of the widgets opens beside it. `source` as in "Focus/WaterSettings.qml".
  DockPopoverController& addTilePanel(std::initializer_list<const char*> widgets, const char* source,
                                      QVariantMap properties, QSize size);
  // The same for widgets whose click does something else: the panel opens when they ask for their settings.
  DockPopoverController& addTileSettings(std::initializer_list<const char*> widgets, const char* source,
                                         QVariantMap properties, QSize size);
  // Handed to one page of the settings, beside the settings themselves.
  void addToSettingsPage(const QString& tab, const QString& property, QObject& object);
  // Who is told of a click on a notification and of its buttons; the agents' sessions get what nobody asked for.
  using NotificationAnswer = std::function<void(const std::string& action)>;  // "": the notification itself
  void answerNotifications(const std::string& identifier, NotificationAnswer answer);
  // Who is told that the user has put a notification away.
  void followDismissal(const std::string& identifier, std::function<void()> dismissed);
  void handleNotifications();
  std::vector<DockPopoverController*> panels() const;
  // One of them, or the shelf, has opened or closed.
  void panelsChanged();
  void pressedSomewhere();
  // Closes the other panels, and opens or closes this one beside the tile of a slot (empty: the middle of the bar).
  void toggle(DockPopoverController* panel, const QString& item = {});
  // Opens it in the middle of the bar; one that is open gets the keyboard.
  void show(DockPopoverController* panel);
  void openTileMenu(const QString& item);
  // Whether the licence allows the feature; if not, it says what the licence would give.
  bool permits(ProFeature feature);
  std::string settingsTab() const;
  // The value stands in memory even when it cannot be written.
  void remember(const std::string& key, DefaultsValue value);
  Theme& preparedTheme();
  void every(Seconds interval, std::function<void()> action);
  void followZone();
  void followDefaults();
  void tellOfKeptDefaults(const std::filesystem::path& copy);
  DelayedStep later();

  Surroundings surroundings_;
  Desktop desktop_;
  ToastController toast_;
  std::optional<std::filesystem::path> keptDefaults_;  // a damaged file of theirs, found at the start
  UserDefaults defaults_;
  DefaultsWatcher defaultsWatcher_;
  AppSettings settings_;
  LicenseManager license_;
  AppModel model_;
  Background background_;
  AgentsModel agents_;
  std::unique_ptr<ClipboardModel> clipboard_;
  DesktopAppearance appearance_;
  QQmlEngine engine_;
  DueTimer due_;
  AppearanceSettings appearanceSettings_;
  GalleryModel gallery_;
  std::unique_ptr<SystemMonitor> system_;
  std::unique_ptr<ClockModel> clock_;
  std::unique_ptr<AIUsageModel> usage_;
  std::unique_ptr<ClaudeStatusLineModel> statusLine_;
  std::unique_ptr<ClaudeBudgetModel> claudeBudget_;
  std::unique_ptr<FocusModels> focus_;
  std::unique_ptr<LiveModels> live_;
  std::unique_ptr<WeatherModels> weather_;
  LiveModels::Need batteryNeed_, busiestNeed_;  // of the rules
  std::unique_ptr<BuddyNoticeCenter> notices_;
  Instant bubblePeek_{};  // until when the bubble's peek lasts
  std::unique_ptr<DiskCleaner> disk_;
  std::unique_ptr<DiskDoctor> diskDoctorModel_;
  std::unique_ptr<DiskDoctorController> diskDoctor_;
  std::unique_ptr<WidgetContext> context_;
  std::unique_ptr<DockPopoverController> upsellPanel_, settingsPanel_, welcomePanel_, agentsPanel_, customizePanel_,
      tileMenu_;
  std::vector<std::unique_ptr<DockPopoverController>> tilePanels_;
  std::function<void()> tileCommand_;  // of the tile whose menu was opened last
  QVariantMap settingsPages_;          // tab to the properties of its page
  std::map<std::string, NotificationAnswer> notificationAnswers_;
  std::map<std::string, std::function<void()>> dismissals_;
  DockPopoverController* inboxPanel_ = nullptr;  // one of the tile panels
  bool returnsKeyboard_ = false;                 // to the bar, when the open panel closes
  PointerRelay pointers_;
  std::unique_ptr<PointerMonitor> dockPointer_, shelfPointer_;
  std::unique_ptr<ShelfPanelController> shelf_;
  std::unique_ptr<DockPanelController> dock_;
  std::unique_ptr<BubbleController> bubble_;
  std::unique_ptr<TipController> tips_;
  std::unique_ptr<ContextPeeker> peeker_;
  std::unique_ptr<StatusItem> statusItem_;
  QTimer clockTimer_;
  bool proServicesStarted_ = false;
  bool followsPresses_ = false;
  QString panelItem_;  // the slot of the panel that was opened last
};

}  // namespace ambrel
