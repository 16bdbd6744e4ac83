#pragma once
// Builds every long-lived object once, in a fixed order, and connects the areas of the program to the desktop. Nothing
// is ever rebuilt, and there is no shutdown step: every write happens when its state changes.

#include <QObject>
#include <QQmlEngine>
#include <functional>
#include <memory>

#include "app/BarWindows.h"
#include "app/StoredDefaults.h"
#include "app/TrayMenu.h"
#include "app/base/DueTimer.h"
#include "app/kit/DesktopAppearance.h"
#include "app/menu/UpdateCheck.h"
#include "app/model/AppModel.h"
#include "app/model/AppSettings.h"
#include "app/model/LicenseManager.h"
#include "app/model/SlotChoices.h"
#include "app/window/ToastController.h"

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

  // What the user wants to have deleted, once the program has ended for it: an id of core's personal data, "" for all.
  // It starts again afterwards.
  const std::optional<std::string>& deletion() const { return deletion_; }

  // Reached by the tests.
  AppModel& model() { return model_; }
  AppSettings& settings() { return settings_; }
  LicenseManager& license() { return license_; }
  QQmlEngine& engine() { return engine_; }
  Areas& areas() { return areas_; }
  WidgetContext& context() { return context_; }
  BarWindows& bar() { return *bar_; }  // once it was launched

 private:
  void prepareTheme();
  void followLicense();
  void followWidgets();
  void followProblems();
  void followZone();
  void followDefaults();
  void followDeletion();
  void registerKeys();
  void startTimers();
  void startProServices();
  void handleNotifications();
  void addBuddyOnce();
  void firstRun();
  void widgetsChanged();

  void every(Seconds interval, std::function<void()> action);
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
  SlotChoices slotChoices_{model_, defaults_};
  DesktopAppearance appearance_;
  QQmlEngine engine_;
  DueTimer due_;
  Services services_;
  Areas areas_;
  WidgetContext context_;
  std::unique_ptr<TrayMenu> tray_;
  UpdateCheck updates_{QCoreApplication::applicationVersion().toStdString(), UpdateCheck::ofThisProgram()};
  bool proServicesStarted_ = false;
  std::optional<std::string> deletion_;
  std::unique_ptr<BarWindows> bar_;
};

}  // namespace ambrel
