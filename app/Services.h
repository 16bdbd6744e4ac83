#pragma once

#include "app/Surroundings.h"
#include "app/base/Presentation.h"
#include "platform/Desktop.h"

class QObject;
class QQmlEngine;

namespace ambrel {

class AppModel;
class AppSettings;
class DueTimer;
class LicenseManager;
class Shell;
class ToastController;
class UserDefaults;

// What the program has one of, and what the areas and the windows are built with. All of it outlives them.
struct Services {
  Surroundings& surroundings;
  Desktop& desktop;
  UserDefaults& defaults;
  AppSettings& settings;
  LicenseManager& license;
  AppModel& model;
  QQmlEngine& engine;
  DueTimer& due;
  ToastController& toast;
  Shell& shell;
  QObject& context;  // of work off the main thread
  DelayedStep later;
};

}  // namespace ambrel
