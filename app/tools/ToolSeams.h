#pragma once
// What the tools ask of the program.

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "app/base/Area.h"
#include "app/base/Background.h"
#include "app/base/Presentation.h"
#include "app/tools/CalculatorRun.h"
#include "core/base/PresentCalendar.h"
#include "core/base/UserDefaults.h"
#include "core/clipboard/Capture.h"
#include "platform/LanguageModel.h"
#include "platform/ScreenCapture.h"
#include "platform/WindowStyle.h"

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
  Calculate calculate;
  DelayedStep later;
  ScreenCapture& screen;
  WindowStyle& windowStyle;
  LanguageModel& model;
  QString usualTranslator;          // the address at which a translation server is looked for
  std::filesystem::path emojiFile;  // Unicode's emoji-test.txt
};

}  // namespace ambrel
