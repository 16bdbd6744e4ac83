#pragma once
// Shortcuts out of desktop entries. A program that says so is started over D-Bus, and all others by their commands.

#include <QDBusConnection>

#include "platform/Launcher.h"
#include "platform/linux/InstalledPrograms.h"

namespace ambrel {

class DesktopLauncher : public Launcher {
 public:
  DesktopLauncher(ProgramFolders folders, QDBusConnection bus) : programs_(std::move(folders)), bus_(std::move(bus)) {}

  std::vector<Shortcut> offered() override;
  std::optional<Shortcut> find(std::string_view id) override;
  bool run(std::string_view id) override;

 private:
  struct Found {
    InstalledProgram program;
    std::optional<DesktopAction> action;
  };
  std::optional<Found> lookUp(std::string_view id);

  InstalledPrograms programs_;
  QDBusConnection bus_;
};

}  // namespace ambrel
