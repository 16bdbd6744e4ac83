#pragma once
// The desktop that the program runs on, made of what this session has: X11 where there is an X server, D-Bus where
// there is a session bus. What is missing says so to those who ask; nothing here fails.

#include <filesystem>
#include <memory>
#include <string>

#include "core/base/PresentCalendar.h"
#include "platform/Desktop.h"
#include "platform/SessionService.h"

namespace ambrel {

// What a second start needs to hand its wish over, and all that it may make: the desktop tries out the window manager
// with windows that this one would take away at once. After the toolkit's application object.
std::unique_ptr<SessionService> openSession();

class LinuxDesktop {
 public:
  // display: as in DISPLAY; empty for none. After the toolkit's application object.
  // dataHome: $XDG_DATA_HOME, which holds the Trash. calendar: for the dates that others read. zoneFile: see
  // SystemTimeZone.
  LinuxDesktop(const std::string& display, const std::string& dataHome, const PresentCalendar& calendar,
               const std::filesystem::path& zoneFile);
  ~LinuxDesktop();

  Desktop seams();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace ambrel
