#pragma once
// The item in the tray, kept up to date with the profiles, the displays, the agents and the licence.

#include "app/menu/StatusItem.h"
#include "platform/Tray.h"

namespace ambrel {

class AgentsModel;
class AppModel;
class AppSettings;
class LicenseManager;
class Theme;

class TrayMenu : public QObject {
  Q_OBJECT

 public:
  // All outlive it.
  TrayMenu(const AppModel& model, const AppSettings& settings, const AgentsModel& agents, const LicenseManager& license,
           const Theme& theme, Tray& tray, StatusItem::Handler handler);
  ~TrayMenu() override { tray_.whenThere(nullptr); }

 private:
  void update();

  const AppModel& model_;
  const AppSettings& settings_;
  const AgentsModel& agents_;
  const LicenseManager& license_;
  Tray& tray_;
  StatusItem item_;
};

}  // namespace ambrel
