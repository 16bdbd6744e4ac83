#pragma once
// What the text tools ask of the program.

#include <functional>
#include <string>
#include <vector>

#include "app/base/Area.h"
#include "app/base/Background.h"
#include "core/base/PresentCalendar.h"
#include "core/base/UserDefaults.h"
#include "core/clipboard/Capture.h"

namespace ambrel {

// The references outlive the area.
struct ToolSeams {
  UserDefaults& defaults;
  Shell& shell;
  PresentCalendar calendar;
  std::function<Instant()> now;
  Background background;
  // The text on the clipboard, soon; empty without one.
  std::function<void(std::function<void(std::string)> done)> readClipboard;
  // Puts it on the clipboard past the history.
  std::function<void(std::vector<Representation>)> write;
};

}  // namespace ambrel
