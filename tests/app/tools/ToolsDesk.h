#pragma once
// The tools' area with all that it asks of the program.

#include <functional>
#include <string>
#include <vector>

#include "app/tools/ToolsArea.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakeLanguageModel.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/HeldWork.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {

struct FakeScreen : ScreenCapture {
  void capture(std::function<void(ScreenPicture)> done) override { done({.image = image}); }
  bool pickColor(std::function<void(PickedColor)> done) override {
    if (picked) done(*picked);
    return picked.has_value();
  }
  QImage image;
  std::optional<PickedColor> picked;  // by the desktop's own picker
};

struct ToolsDesk {
  struct Asked {
    std::string expression;
    std::stop_token stop;
    std::function<void(ToolOutcome)> done;
  };

  TemporaryFolder folder;
  UserDefaults defaults{std::filesystem::path(folder.path()) / "defaults.json"};
  FakeShell shell;
  HeldWork held;
  FakeScreen screen;
  FakeWindowStyle windowStyle;
  FakeLanguageModel model;
  LoopbackServer translator;  // at the usual place; no translation server until it is told to answer
  std::string clipboard;
  int reads = 0;
  std::vector<std::vector<Representation>> written;
  std::vector<Asked> asked;
  std::vector<std::function<void()>> later;
  ToolsArea area{{.defaults = defaults,
                  .shell = shell,
                  .calendar = PresentCalendar(Calendar("UTC", "en_US")),
                  .now = [] { return Instant(); },
                  .background = held.background(),
                  .readClipboard =
                      [this](auto done) {
                        ++reads;
                        done(clipboard);
                      },
                  .write = [this](auto what) { written.push_back(std::move(what)); },
                  .calculate =
                      [this](auto expression, auto stop, auto done) {
                        asked.push_back({expression, stop, done});
                      },
                  .later = [this](Seconds, auto step) { later.push_back(std::move(step)); },
                  .screen = screen,
                  .windowStyle = windowStyle,
                  .model = model,
                  .usualTranslator = translator.url().toString(),
                  .emojiFile = std::filesystem::path(folder.path()) / "emoji-test.txt"}};

  TextToolModel& tool(const char* widget) { return *area.tool(QString::fromLatin1(widget)); }
  void show(std::set<DockWidget> onBar, bool areSeen = true) { area.widgetsChanged(onBar, areSeen, Instant()); }
  void copied(std::string text) {
    clipboard = std::move(text);
    area.clipboardChanged();
  }
  // The moment after which what was typed is worked out.
  void rest() {
    for (const auto& step : std::exchange(later, {})) step();
  }
};

}  // namespace ambrel
