#pragma once
// The whole program on a desktop that the test plays, with a home of its own.

#include <QQuickItem>
#include <QQuickView>

#include "app/AppDelegate.h"
#include "tests/app/kit/QMLWarnings.h"
#include "tests/app/model/ProfilesRoom.h"
#include "tests/fakes/FakeDesktop.h"

namespace ambrel {

struct Program {
  // Nothing listens there: no test reaches the network.
  static constexpr const char* unreachable = "http://127.0.0.1:1/";

  explicit Program(bool isFirstRun = false, const std::string& weatherServer = unreachable) {
    UserDefaults defaults(folder / "defaults.json");
    if (!isFirstRun) defaults.set("welcomeDone", DefaultsValue{true});
    defaults.set("barAlwaysVisible", DefaultsValue{true});
    for (const char* host : {"weatherForecastURL", "weatherAirQualityURL", "weatherGeocodingURL", "modelServerURL",
                             "hackerNewsURL", "currencyRatesURL"})
      defaults.set(host, DefaultsValue{weatherServer});
    restart();
  }

  ~Program() { end(); }

  // What is stored stays.
  void restart() {
    end();
    delegate = std::make_unique<AppDelegate>(
        Surroundings{.home = folder / "home",
                     .dataFolder = folder / "data",
                     .defaultsFile = folder / "defaults.json",
                     .calendar = Calendar{"UTC", "en_US"},
                     .now = [this] { return desktop.clock.now(); },
                     .userHome = {.home = {}, .data = {}, .config = folder / "home/.config", .cache = {}},
                     .licenceKey = licenceKey},
        desktop.seams());
  }

  void putOnBar(const std::vector<std::string>& widgets) { ambrel::putOnBar(delegate->model(), widgets); }
  QQuickItem* bar() const {
    auto* window = qobject_cast<QQuickWindow*>(delegate->bar().dock().window());
    return window ? window->contentItem() : nullptr;
  }
  // The slots of the bar that show a widget, in no particular order.
  std::vector<QQuickItem*> slotsOfBar() const {
    std::vector<QQuickItem*> found;
    if (QQuickItem* root = bar()) collect(root, found);
    return found;
  }

  // The bar looks at the pointer all the while.
  void passAtBar(double seconds) {
    for (int i = 0; i < seconds * 10; ++i) {
      desktop.clock.pass(Seconds(0.1));
      delegate->bar().dock().tick(desktop.clock.now());
    }
  }

  // Null while there is none.
  QQuickItem* slotOf(const char* widget) const {
    for (QQuickItem* slot : slotsOfBar())
      if (slot->property("widget").toString() == QLatin1String(widget)) return slot;
    return nullptr;
  }

  // Empty: every feature is allowed. Set, it counts from the next `restart` on.
  std::string licenceKey;
  TemporaryFolder folder;
  QMLWarnings warnings;
  FakeDesktop desktop{parseISO8601("2026-11-21T09:41:00Z").value()};
  std::unique_ptr<AppDelegate> delegate;

 private:
  void end() {
    warnings.expectNone();
    delegate.reset();
    warnings.take();
    desktop.hotKeys.keys.clear();
  }
  static void collect(QQuickItem* item, std::vector<QQuickItem*>& found) {
    if (item->inherits("QQuickItem") && item->property("widget").isValid() && item->property("frame").isValid()) {
      found.push_back(item);
      return;
    }
    for (QQuickItem* child : item->childItems()) collect(child, found);
  }
};

}  // namespace ambrel
